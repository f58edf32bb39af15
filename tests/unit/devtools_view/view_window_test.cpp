#include "devtools/view/view_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace cefedition {
namespace {

using nlohmann::json;

constexpr RECT kViewRect{10, 20, 10 + 120, 20 + 90};
constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kRed = 0xFF0000;
constexpr uint32_t kGreen = 0x00FF00;
constexpr uint32_t kBlue = 0x0000FF;

DecodedImage FlatFrame(int width, int height, uint32_t rgb) {
  DecodedImage frame{width, height, {}};
  for (int at = 0; at < width * height; ++at) {
    frame.bgra.insert(frame.bgra.end(), {static_cast<uint8_t>(rgb), static_cast<uint8_t>(rgb >> 8U),
                                         static_cast<uint8_t>(rgb >> 16U), 255});
  }
  return frame;
}

// A red top row over a green rest: tells an upright picture from one on its head.
DecodedImage FlagFrame(int width, int height) {
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

uint32_t PixelOf(HWND window, int x, int y) {
  UpdateWindow(window);
  Picture picture(1, 1);
  const HDC dc = GetDC(window);
  BitBlt(picture.dc(), 0, 0, 1, 1, dc, x, y, SRCCOPY);
  ReleaseDC(window, dc);
  return picture.At(0, 0);
}

void PumpMessages() {
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
  std::vector<std::pair<std::string, json>> inputs;
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

TEST_F(ViewWindowTest, IsAChildOfTheStyleAndPlaceAskedFor) {
  view_ = ViewWindow::Create(host_.hwnd(), WS_CLIPSIBLINGS | WS_TABSTOP, kViewRect, &recorder_);
  ASSERT_TRUE(view_);
  EXPECT_EQ(GetParent(view_->hwnd()), host_.hwnd());
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(view_->hwnd(), GWL_STYLE));
  EXPECT_EQ(style & (WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP),
            static_cast<DWORD>(WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP));
  EXPECT_FALSE(IsWindowVisible(view_->hwnd())) << "WS_VISIBLE was not asked for";
  RECT rect{};
  GetWindowRect(view_->hwnd(), &rect);
  MapWindowPoints(nullptr, host_.hwnd(), reinterpret_cast<POINT*>(&rect), 2);
  EXPECT_TRUE(EqualRect(&rect, &kViewRect));
  const ViewWindow::Size size = view_->GetSize();
  EXPECT_EQ(size.width_px, 120);
  EXPECT_EQ(size.height_px, 90);
  EXPECT_EQ(size.scale, 1.0);
}

TEST_F(ViewWindowTest, IsNotCreatedInAWindowThatIsGone) {
  const HWND gone = host_.hwnd();
  host_.Destroy();
  EXPECT_FALSE(ViewWindow::Create(gone, WS_CHILD, kViewRect, &recorder_));
  EXPECT_EQ(recorder_.destroyed, 0);
}

TEST_F(ViewWindowTest, SaysNothingOfItsCreation) {
  CreateView();
  EXPECT_TRUE(recorder_.resizes.empty());
  EXPECT_TRUE(recorder_.inputs.empty());
}

TEST_F(ViewWindowTest, IsWhiteBeforeTheFirstFrame) {
  CreateView();
  EXPECT_EQ(PixelOf(view_->hwnd(), 0, 0), kWhite);
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 89), kWhite);
}

TEST_F(ViewWindowTest, PaintsTheFrameUpright) {
  CreateView();
  view_->SetFrame(FlagFrame(120, 90));
  EXPECT_EQ(PixelOf(view_->hwnd(), 0, 0), kRed);
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 0), kRed);
  EXPECT_EQ(PixelOf(view_->hwnd(), 0, 1), kGreen);
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 89), kGreen);
}

TEST_F(ViewWindowTest, ShowsTheLastOfManyFrames) {
  CreateView();
  for (int at = 0; at < 50; ++at)
    view_->SetFrame(FlatFrame(120, 90, kRed));
  view_->SetFrame(FlatFrame(120, 90, kBlue));
  EXPECT_EQ(PixelOf(view_->hwnd(), 60, 45), kBlue);
}

TEST_F(ViewWindowTest, PaintsOnlyWhenTheSystemAsks) {
  CreateView();
  UpdateWindow(view_->hwnd());
  ASSERT_FALSE(GetUpdateRect(view_->hwnd(), nullptr, FALSE));
  view_->SetFrame(FlatFrame(120, 90, kRed));
  EXPECT_TRUE(GetUpdateRect(view_->hwnd(), nullptr, FALSE));
}

TEST_F(ViewWindowTest, KeepsAFrameOfAnotherSizeUnscaledOnWhite) {
  CreateView();
  view_->SetFrame(FlatFrame(50, 40, kBlue));
  EXPECT_EQ(PixelOf(view_->hwnd(), 49, 39), kBlue);
  EXPECT_EQ(PixelOf(view_->hwnd(), 50, 39), kWhite);
  EXPECT_EQ(PixelOf(view_->hwnd(), 49, 40), kWhite);
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 89), kWhite);
}

TEST_F(ViewWindowTest, LeavesNothingOfALargerFrameBehind) {
  CreateView();
  view_->SetFrame(FlatFrame(300, 200, kRed));
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 89), kRed);
  view_->SetFrame(FlatFrame(50, 40, kBlue));
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 89), kWhite);
}

TEST_F(ViewWindowTest, KeepsTheOldFrameUnscaledWhenItGrows) {
  CreateView();
  view_->SetFrame(FlagFrame(120, 90));
  EXPECT_EQ(PixelOf(view_->hwnd(), 0, 0), kRed);
  SetWindowPos(view_->hwnd(), nullptr, 0, 0, 150, 110, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(PixelOf(view_->hwnd(), 119, 89), kGreen);
  EXPECT_EQ(PixelOf(view_->hwnd(), 120, 89), kWhite);
  EXPECT_EQ(PixelOf(view_->hwnd(), 149, 109), kWhite);
}

TEST_F(ViewWindowTest, IgnoresAFrameThatContradictsItself) {
  CreateView();
  view_->SetFrame(FlatFrame(120, 90, kGreen));
  DecodedImage broken = FlatFrame(120, 90, kRed);
  broken.height = 91;
  view_->SetFrame(std::move(broken));
  view_->SetFrame({-120, -90, FlatFrame(120, 90, kRed).bgra});
  EXPECT_EQ(PixelOf(view_->hwnd(), 60, 45), kGreen);
}

TEST_F(ViewWindowTest, PaintsIntoAForeignDeviceContext) {
  CreateView();
  view_->SetFrame(FlatFrame(50, 40, kBlue));
  Picture picture(120, 90);
  Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.dc()), PRF_CLIENT);
  EXPECT_EQ(picture.At(49, 39), kBlue);
  EXPECT_EQ(picture.At(119, 89), kWhite);
}

TEST_F(ViewWindowTest, KeepsTwoWindowsApart) {
  CreateView();
  Recorder other_recorder;
  const auto other = ViewWindow::Create(host_.hwnd(), WS_CHILD | WS_VISIBLE,
                                        RECT{150, 20, 250, 120}, &other_recorder);
  ASSERT_TRUE(other);
  view_->SetFrame(FlatFrame(120, 90, kRed));
  other->SetFrame(FlatFrame(100, 100, kBlue));
  EXPECT_EQ(PixelOf(view_->hwnd(), 5, 5), kRed);
  EXPECT_EQ(PixelOf(other->hwnd(), 5, 5), kBlue);
  SendMessageW(other->hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(1, 1));
  EXPECT_TRUE(recorder_.inputs.empty());
  EXPECT_EQ(other_recorder.inputs.size(), 1U);
}

TEST_F(ViewWindowTest, AnnouncesEachNewSize) {
  CreateView();
  SetWindowPos(view_->hwnd(), nullptr, 0, 0, 200, 150, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(recorder_.resizes, (std::vector<Resize>{{200, 150, 1.0}}));
  SetWindowPos(view_->hwnd(), nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(recorder_.resizes.back(), (Resize{0, 0, 1.0}));
}

TEST_F(ViewWindowTest, AsksItsOwnerBeforeItCloses) {
  CreateView();
  Send(WM_CLOSE);
  EXPECT_EQ(recorder_.close_requests, 1);
  EXPECT_TRUE(IsWindow(view_->hwnd()));
}

TEST_F(ViewWindowTest, SaysSoWhenItsParentTakesItAlong) {
  CreateView();
  host_.Destroy();
  EXPECT_EQ(recorder_.destroyed, 1);
  EXPECT_EQ(view_->hwnd(), nullptr);
  view_->SetFrame(FlatFrame(10, 10, kRed));
  EXPECT_EQ(view_->GetSize().width_px, 0);
  view_.reset();
  EXPECT_EQ(recorder_.destroyed, 1);
}

TEST_F(ViewWindowTest, SaysNothingWhenItsOwnerDeletesIt) {
  CreateView();
  SetFocus(view_->hwnd());
  recorder_ = Recorder();
  const HWND window = view_->hwnd();
  view_.reset();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(recorder_.destroyed, 0);
  EXPECT_TRUE(recorder_.focus.empty());
}

TEST_F(ViewWindowTest, MayBeDeletedInsideAnyCall) {
  const std::vector<std::pair<const char*, std::function<void()>>> ways = {
      {"resize", [&] { MoveWindow(view_->hwnd(), 0, 0, 50, 50, FALSE); }},
      {"close", [&] { Send(WM_CLOSE); }},
      {"move", [&] { Send(WM_MOUSEMOVE, 0, MAKELPARAM(1, 1)); }},
      {"focus by a click", [&] { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1)); }},
      {"key", [&] { Send(WM_KEYDOWN, 'A', 1); }},
      {"system key", [&] { Send(WM_SYSKEYDOWN, VK_F10, 1); }},
  };
  for (const auto& [name, way] : ways) {
    SetFocus(host_.hwnd());
    recorder_ = Recorder();
    CreateView();
    const HWND window = view_->hwnd();
    recorder_.action = [&] { view_.reset(); };
    way();
    EXPECT_FALSE(view_) << name;
    EXPECT_FALSE(IsWindow(window)) << name;
    recorder_.action = nullptr;
  }
  CreateView();
  recorder_.action = [&] { view_.reset(); };
  host_.Destroy();
  EXPECT_FALSE(view_) << "destroyed with its parent";
}

TEST_F(ViewWindowTest, TakesKeyboardAndMouseOnAPress) {
  CreateView();
  SetFocus(host_.hwnd());
  recorder_ = Recorder();
  Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(7, 8));
  EXPECT_EQ(GetFocus(), view_->hwnd());
  EXPECT_EQ(GetCapture(), view_->hwnd());
  EXPECT_EQ(recorder_.focus, std::vector<bool>{true});
  ASSERT_EQ(recorder_.inputs.size(), 1U);
  EXPECT_EQ(recorder_.inputs[0].first, "Input.dispatchMouseEvent");
  EXPECT_EQ(recorder_.inputs[0].second["type"], "mousePressed");
  EXPECT_EQ(recorder_.inputs[0].second["x"], 7.0);
  EXPECT_EQ(recorder_.inputs[0].second["y"], 8.0);

  // A second button keeps the mouse captured until both are up.
  Send(WM_RBUTTONDOWN, MK_LBUTTON | MK_RBUTTON, MAKELPARAM(7, 8));
  Send(WM_LBUTTONUP, MK_RBUTTON, MAKELPARAM(7, 8));
  EXPECT_EQ(GetCapture(), view_->hwnd());
  Send(WM_RBUTTONUP, 0, MAKELPARAM(7, 8));
  EXPECT_EQ(GetCapture(), nullptr);

  SetFocus(host_.hwnd());
  EXPECT_EQ(recorder_.focus, (std::vector<bool>{true, false}));
}

TEST_F(ViewWindowTest, TurnsAWheelsScreenPositionIntoItsOwn) {
  CreateView();
  POINT point{30, 40};
  ClientToScreen(view_->hwnd(), &point);
  Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(point.x, point.y));
  ASSERT_EQ(recorder_.inputs.size(), 1U);
  EXPECT_EQ(recorder_.inputs[0].second["x"], 30.0);
  EXPECT_EQ(recorder_.inputs[0].second["y"], 40.0);
}

TEST_F(ViewWindowTest, SendsAKeyAndThenItsCharacter) {
  CreateView();
  Send(WM_KEYDOWN, 'A', 1 | (0x1E << 16));
  Send(WM_CHAR, 'a', 1 | (0x1E << 16));
  Send(WM_KEYUP, 'A', static_cast<LPARAM>(0xC01E0001U));
  ASSERT_EQ(recorder_.inputs.size(), 3U);
  EXPECT_EQ(recorder_.inputs[0].second["type"], "rawKeyDown");
  EXPECT_EQ(recorder_.inputs[0].second["key"], "a");
  EXPECT_EQ(recorder_.inputs[1].second["type"], "char");
  EXPECT_EQ(recorder_.inputs[1].second["text"], "a");
  EXPECT_EQ(recorder_.inputs[2].second["type"], "keyUp");
}

TEST_F(ViewWindowTest, InsertsComposedTextOnce) {
  CreateView();
  Send(WM_IME_CHAR, 0x6F22, 1);
  PumpMessages();
  ASSERT_EQ(recorder_.inputs.size(), 1U);
  EXPECT_EQ(recorder_.inputs[0].first, "Input.insertText");
  EXPECT_EQ(Send(WM_UNICHAR, UNICODE_NOCHAR), TRUE);
  EXPECT_EQ(recorder_.inputs.size(), 1U);
}

TEST_F(ViewWindowTest, WantsTheKeysOfADialog) {
  CreateView();
  EXPECT_TRUE(Send(WM_GETDLGCODE) & DLGC_WANTALLKEYS);
}

TEST_F(ViewWindowTest, AsksItsParentNothing) {
  CreateView();
  Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(view_->hwnd()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  Send(WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(host_.hwnd()),
       MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
  Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(1, 1));
  Send(WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
  view_.reset();
  EXPECT_FALSE(host_.Heard(WM_SETCURSOR));
  EXPECT_FALSE(host_.Heard(WM_MOUSEACTIVATE));
  EXPECT_FALSE(host_.Heard(WM_CONTEXTMENU));
  EXPECT_FALSE(host_.Heard(WM_PARENTNOTIFY));
}

TEST_F(ViewWindowTest, FollowsTheScreensResolution) {
  view_ = ViewWindow::Create(nullptr, WS_OVERLAPPEDWINDOW, RECT{0, 0, 300, 200}, &recorder_);
  ASSERT_TRUE(view_);
  const RECT suggested{40, 50, 440, 350};
  Send(WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
  RECT rect{};
  GetWindowRect(view_->hwnd(), &rect);
  EXPECT_TRUE(EqualRect(&rect, &suggested));
  EXPECT_FALSE(recorder_.resizes.empty());
}

TEST_F(ViewWindowTest, IsATopLevelWindowWithATitleWithoutAParent) {
  view_ = ViewWindow::Create(nullptr, WS_OVERLAPPEDWINDOW, RECT{30, 40, 330, 240}, &recorder_);
  ASSERT_TRUE(view_);
  EXPECT_EQ(GetAncestor(view_->hwnd(), GA_ROOT), view_->hwnd());
  RECT rect{};
  GetWindowRect(view_->hwnd(), &rect);
  EXPECT_EQ(rect.right - rect.left, 300);
  EXPECT_EQ(rect.bottom - rect.top, 200);
  view_->SetTitle(L"A page \u2013 title");
  wchar_t title[64] = {};
  GetWindowTextW(view_->hwnd(), title, 64);
  EXPECT_STREQ(title, L"A page \u2013 title");
}

TEST_F(ViewWindowTest, LeavesPlaceAndSizeToTheSystemOnRequest) {
  view_ = ViewWindow::Create(nullptr, WS_OVERLAPPEDWINDOW,
                             RECT{CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT},
                             &recorder_);
  ASSERT_TRUE(view_);
  EXPECT_GT(view_->GetSize().width_px, 0);
  EXPECT_GT(view_->GetSize().height_px, 0);
}

// A host's window on a thread of its own, which can be kept from taking messages.
class HostThread {
 public:
  HostThread()
      : thread_([this] {
          HostWindow host;
          made_.set_value(host.hwnd());
          MSG message;
          while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
          busy_.set_value();
          released_.get_future().wait();
        }) {
    parent_ = made_.get_future().get();
  }
  ~HostThread() {
    released_.set_value();
    thread_.join();
  }
  HostThread(const HostThread&) = delete;
  HostThread& operator=(const HostThread&) = delete;

  HWND parent() const { return parent_; }
  void MakeBusy() {
    PostMessageW(parent_, WM_QUIT, 0, 0);
    busy_.get_future().wait();
  }

 private:
  std::promise<HWND> made_;
  std::promise<void> busy_;
  std::promise<void> released_;
  HWND parent_ = nullptr;
  std::thread thread_;
};

// A host's thread may wait for the engine's while a view is made or deleted.
TEST(ViewWindowThreads, IsMadeUsedAndDeletedBesideABusyParent) {
  HostThread host;
  host.MakeBusy();
  Recorder recorder;
  auto view = ViewWindow::Create(host.parent(), WS_CHILD | WS_VISIBLE, kViewRect, &recorder);
  ASSERT_TRUE(view);
  view->SetFrame(FlatFrame(120, 90, kRed));
  UpdateWindow(view->hwnd());
  SendMessageW(view->hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(1, 1));
  EXPECT_EQ(recorder.inputs.size(), 1U);
  view.reset();
}

TEST(ViewWindowThreads, IsDeletedWithTheFocusBesideABusyParent) {
  HostThread host;
  Recorder recorder;
  auto view = ViewWindow::Create(host.parent(), WS_CHILD | WS_VISIBLE, kViewRect, &recorder);
  ASSERT_TRUE(view);
  SetFocus(view->hwnd());
  ASSERT_EQ(GetFocus(), view->hwnd());
  host.MakeBusy();
  view.reset();
  EXPECT_EQ(recorder.destroyed, 0);
}

TEST_F(ViewWindowTest, UncoversItsParentWhenItGoes) {
  CreateView();
  UpdateWindow(host_.hwnd());
  PumpMessages();
  view_.reset();
  RECT rect{};
  EXPECT_TRUE(GetUpdateRect(host_.hwnd(), &rect, FALSE));
  EXPECT_TRUE(EqualRect(&rect, &kViewRect));
}

TEST(ViewWindowThreads, DiesWithAParentOfAnotherThread) {
  std::promise<HWND> made;
  std::promise<void> destroy;
  std::thread host_thread([&] {
    const HostWindow host;
    made.set_value(host.hwnd());
    destroy.get_future().wait();
  });
  Recorder recorder;
  const auto view =
      ViewWindow::Create(made.get_future().get(), WS_CHILD | WS_VISIBLE, kViewRect, &recorder);
  ASSERT_TRUE(view);
  recorder.action = [&] {
    if (recorder.destroyed != 0)
      PostQuitMessage(0);
  };
  destroy.set_value();
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0)
    DispatchMessageW(&message);
  EXPECT_EQ(recorder.destroyed, 1);
  EXPECT_EQ(view->hwnd(), nullptr);
  host_thread.join();
}

}  // namespace
}  // namespace cefedition
