// What the view takes of keyboard and mouse.

#include <gtest/gtest.h>

#include "view_window_fixture.h"

namespace cefedition {
namespace {

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

}  // namespace
}  // namespace cefedition
