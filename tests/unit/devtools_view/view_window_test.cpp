// The life of the view as a window.

#include <gtest/gtest.h>

#include "view_window_fixture.h"

namespace cefedition {
namespace {

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

TEST_F(ViewWindowTest, UncoversItsParentWhenItGoes) {
  CreateView();
  UpdateWindow(host_.hwnd());
  PumpMessages();
  view_.reset();
  RECT rect{};
  EXPECT_TRUE(GetUpdateRect(host_.hwnd(), &rect, FALSE));
  EXPECT_TRUE(EqualRect(&rect, &kViewRect));
}

}  // namespace
}  // namespace cefedition
