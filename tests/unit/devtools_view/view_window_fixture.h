#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "devtools/view/view_window.h"

namespace cefedition {

inline constexpr RECT kViewRect{10, 20, 10 + 120, 20 + 90};
inline constexpr uint32_t kWhite = 0xFFFFFF;
inline constexpr uint32_t kRed = 0xFF0000;
inline constexpr uint32_t kGreen = 0x00FF00;
inline constexpr uint32_t kBlue = 0x0000FF;

inline DecodedImage FlatFrame(int width, int height, uint32_t rgb) {
  DecodedImage frame{width, height, {}};
  for (int at = 0; at < width * height; ++at) {
    frame.bgra.insert(frame.bgra.end(), {static_cast<uint8_t>(rgb), static_cast<uint8_t>(rgb >> 8U),
                                         static_cast<uint8_t>(rgb >> 16U), 255});
  }
  return frame;
}

// A red top row over a green rest: tells an upright picture from one on its head.
inline DecodedImage FlagFrame(int width, int height) {
  DecodedImage frame = FlatFrame(width, height, kGreen);
  const DecodedImage top = FlatFrame(width, 1, kRed);
  std::copy(top.bgra.begin(), top.bgra.end(), frame.bgra.begin());
  return frame;
}

// A copy of what a device context shows.
class Picture {
 public:
  Picture(int width, int height) : width_(width), dc_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels_ = static_cast<uint32_t*>(bits);
    SelectObject(dc_, bitmap_);
  }
  ~Picture() {
    DeleteDC(dc_);
    DeleteObject(bitmap_);
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  HDC dc() const { return dc_; }
  uint32_t At(int x, int y) const {
    GdiFlush();
    return pixels_[y * width_ + x] & 0xFFFFFFU;
  }

 private:
  const int width_;
  const HDC dc_;
  HBITMAP bitmap_ = nullptr;
  uint32_t* pixels_ = nullptr;
};

inline uint32_t PixelOf(HWND window, int x, int y) {
  UpdateWindow(window);
  Picture picture(1, 1);
  const HDC dc = GetDC(window);
  BitBlt(picture.dc(), 0, 0, 1, 1, dc, x, y, SRCCOPY);
  ReleaseDC(window, dc);
  return picture.At(0, 0);
}

inline void PumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// A host's window that remembers the messages it was asked about by its child.
class HostWindow {
 public:
  HostWindow() {
    WNDCLASSW info{};
    info.lpfnWndProc = &HostWindow::WindowProc;
    info.hInstance = GetModuleHandleW(nullptr);
    info.lpszClassName = L"ViewWindowTestHost";
    RegisterClassW(&info);
    // A bare popup, shown without being activated: where there is no window manager, Wine waits in
    // vain for one to take any other window away.
    hwnd_ = CreateWindowExW(0, L"ViewWindowTestHost", L"host", WS_POPUP, 50, 50, 400, 300, nullptr,
                            nullptr, info.hInstance, nullptr);
    ShowWindow(hwnd_, SW_SHOWNA);
    SetWindowLongPtrW(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    PumpMessages();
  }
  ~HostWindow() { Destroy(); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  void Destroy() {
    if (const HWND window = std::exchange(hwnd_, nullptr))
      DestroyWindow(window);
  }
  HWND hwnd() const { return hwnd_; }
  bool Heard(UINT message) const {
    return std::find(heard_.begin(), heard_.end(), message) != heard_.end();
  }

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA)))
      self->heard_.push_back(message);
    return DefWindowProcW(window, message, wparam, lparam);
  }

  HWND hwnd_ = nullptr;
  std::vector<UINT> heard_;
};

struct Resize {
  int width;
  int height;
  double scale;
  bool operator==(const Resize&) const = default;
};

struct Recorder : ViewWindow::Delegate {
  void OnViewResized(int width, int height, double scale) override {
    resizes.push_back({width, height, scale});
    Act();
  }
  void OnViewKey(const KeyPress& key) override {
    EXPECT_EQ(key.message.wParam, static_cast<WPARAM>(key.event.windows_key_code));
    EXPECT_TRUE(IsWindow(key.message.hwnd));
    OnViewInput(key.command);
  }
  void OnViewInput(const InputCommand& command) override {
    const auto& [method, params] = command;
    inputs.emplace_back(method, params);
    Act();
  }
  void OnViewCloseRequested() override {
    ++close_requests;
    Act();
  }
  void OnViewDestroyed() override {
    ++destroyed;
    Act();
  }
  void OnViewFocus(bool focused) override {
    focus.push_back(focused);
    Act();
  }
  void Act() {
    if (action)
      action();
  }

  std::function<void()> action;
  std::vector<Resize> resizes;
  std::vector<std::pair<std::string, nlohmann::json>> inputs;
  std::vector<bool> focus;
  int close_requests = 0;
  int destroyed = 0;
};

class ViewWindowTest : public testing::Test {
 protected:
  void CreateView(const RECT& rect = kViewRect) {
    view_ = ViewWindow::Create(host_.hwnd(), WS_CHILD | WS_VISIBLE, rect, &recorder_);
    ASSERT_TRUE(view_);
    PumpMessages();
  }
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
    return SendMessageW(view_->hwnd(), message, wparam, lparam);
  }

  HostWindow host_;
  Recorder recorder_;
  std::unique_ptr<ViewWindow> view_;
};

}  // namespace cefedition
