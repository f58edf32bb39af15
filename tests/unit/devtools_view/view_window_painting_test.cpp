// What the view shows.

#include <gtest/gtest.h>

#include "view_window_fixture.h"

namespace cefedition {
namespace {

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

}  // namespace
}  // namespace cefedition
