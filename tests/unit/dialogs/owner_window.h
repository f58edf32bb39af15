// A host's main window that acts while a dialog over it waits.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <functional>
#include <utility>

namespace kzcef::testing {

class OwnerWindow {
 public:
  explicit OwnerWindow(DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, HWND parent = nullptr) {
    WNDCLASSW window_class = {};
    window_class.lpfnWndProc = &OwnerWindow::Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"KzOwnerWindow";
    RegisterClassW(&window_class);
    window_ = CreateWindowExW(0, window_class.lpszClassName, L"", style, 20, 20, 900, 600, parent,
                              nullptr, window_class.hInstance, this);
    EXPECT_TRUE(window_);
  }
  ~OwnerWindow() { Destroy(); }
  OwnerWindow(const OwnerWindow&) = delete;
  OwnerWindow& operator=(const OwnerWindow&) = delete;

  HWND handle() const { return window_; }

  void Destroy() {
    if (const HWND window = std::exchange(window_, nullptr)) {
      DestroyWindow(window);
    }
  }

  // Called once for each dialog, inside its message loop when that has nothing else to do; must end
  // the dialog.
  std::function<void(HWND dialog)> on_dialog;
  // How many dialogs were there, one inside another included.
  int dialogs = 0;
  // Called with each message from WM_APP on.
  std::function<void(UINT message, WPARAM wparam, LPARAM lparam)> on_message;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
      SetWindowLongPtrW(window, GWLP_USERDATA,
                        reinterpret_cast<LONG_PTR>(
                            reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    auto* const self = reinterpret_cast<OwnerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == WM_ENTERIDLE && wparam == MSGF_DIALOGBOX) {
      self->Idle(reinterpret_cast<HWND>(lparam));
      return 0;
    }
    if (self && message >= WM_APP && message < 0xC000 && self->on_message) {
      self->on_message(message, wparam, lparam);
      return 0;
    }
    return DefWindowProcW(window, message, wparam, lparam);
  }

  void Idle(HWND dialog) {
    if (dialog == served_) {
      return;
    }
    served_ = dialog;
    ++dialogs;
    on_dialog(dialog);
  }

  HWND window_ = nullptr;
  HWND served_ = nullptr;
};

// Presses a button of a dialog.
inline void Press(HWND dialog, int button) {
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

// Handles what is in the calling thread's message queue.
inline void HandleMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    DispatchMessageW(&message);
  }
}

}  // namespace kzcef::testing
