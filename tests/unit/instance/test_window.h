// A window that writes down how it is moved.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <vector>

namespace kzcef::testing {

// Has no border and is never shown, so it needs no display.
class TestWindow {
 public:
  TestWindow(int width, int height) {
    WNDCLASSW window_class = {};
    window_class.lpfnWndProc = &TestWindow::Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"KzTestWindow";
    RegisterClassW(&window_class);
    window_ = CreateWindowExW(0, window_class.lpszClassName, L"", WS_POPUP, 0, 0, width, height,
                              HWND_MESSAGE, nullptr, window_class.hInstance, this);
    EXPECT_TRUE(window_);
    moves.clear();
  }
  ~TestWindow() { DestroyWindow(window_); }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  HWND handle() const { return window_; }

  // Each request to move, as it was made.
  std::vector<WINDOWPOS> moves;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
      SetWindowLongPtrW(window, GWLP_USERDATA,
                        reinterpret_cast<LONG_PTR>(
                            reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    auto* const self = reinterpret_cast<TestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == WM_WINDOWPOSCHANGING) {
      self->moves.push_back(*reinterpret_cast<const WINDOWPOS*>(lparam));
    }
    return DefWindowProcW(window, message, wparam, lparam);
  }

  HWND window_ = nullptr;
};

MATCHER_P4(MovedTo, x, y, width, height, "") {
  return arg.x == x && arg.y == y && arg.cx == width && arg.cy == height &&
         arg.hwndInsertAfter == nullptr && arg.flags == SWP_NOZORDER;
}

}  // namespace kzcef::testing
