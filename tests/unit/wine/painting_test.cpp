// The engine's calls for a frame, in their order, on windows of this process.
#include "painting.h"

#include <gtest/gtest.h>

namespace kz::wine {
namespace {

constexpr wchar_t kTranslucent[] = L"Chrome.WindowTranslucent";
constexpr COLORREF kOrange = RGB(255, 165, 0);

class PaintingTest : public testing::Test {
 protected:
  PaintingTest() {
    parent_ = CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 60, 40, nullptr,
                              nullptr, nullptr, nullptr);
    window_ = CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, 0, 0, 60, 40, parent_,
                              nullptr, nullptr, nullptr);
    memory_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateBitmap(100, 100, 1, 32, nullptr);
    SelectObject(memory_, bitmap_);
    const HBRUSH brush = CreateSolidBrush(kOrange);
    const RECT all = {0, 0, 100, 100};
    FillRect(memory_, &all, brush);
    DeleteObject(brush);
  }
  ~PaintingTest() override {
    DestroyWindow(parent_);
    DeleteDC(memory_);
    DeleteObject(bitmap_);
  }

  void SetUp() override { ASSERT_NE(window_, nullptr) << "no display"; }

  // As LayeredWindowUpdaterImpl::Draw of Chromium.
  BOOL Draw(SIZE size) {
    const LONG style = GetWindowLongW(window_, GWL_EXSTYLE);
    SuppliedSetWindowLongW(window_, GWL_EXSTYLE, style | WS_EX_LAYERED);
    POINT position = {};
    POINT origin = {};
    BLENDFUNCTION blend = {AC_SRC_OVER, 0, 0xff, AC_SRC_ALPHA};
    return SuppliedUpdateLayeredWindow(window_, nullptr, &position, &size, memory_, &origin,
                                       RGB(0xff, 0xff, 0xff), &blend, ULW_ALPHA);
  }

  COLORREF PixelAt(int x, int y) {
    const HDC context = GetDC(window_);
    const COLORREF color = GetPixel(context, x, y);
    ReleaseDC(window_, context);
    return color;
  }

  HWND parent_ = nullptr;
  HWND window_ = nullptr;
  HDC memory_ = nullptr;
  HBITMAP bitmap_ = nullptr;
};

TEST_F(PaintingTest, EveryWindowIsDrawnByItsOwnProcess) {
  EXPECT_NE(SuppliedGetPropW(window_, kTranslucent), nullptr);
  EXPECT_EQ(GetPropW(window_, kTranslucent), nullptr);
}

TEST_F(PaintingTest, OtherPropertiesAreTheWindows) {
  EXPECT_EQ(SuppliedGetPropW(window_, L"Other"), nullptr);
  SetPropW(window_, L"Other", reinterpret_cast<HANDLE>(ULONG_PTR{5}));
  EXPECT_EQ(SuppliedGetPropW(window_, L"Other"), reinterpret_cast<HANDLE>(ULONG_PTR{5}));
  RemovePropW(window_, L"Other");
  EXPECT_EQ(SuppliedGetPropW(window_, MAKEINTATOM(0xc123)), nullptr);
}

TEST_F(PaintingTest, AFrameIsSeen) {
  ASSERT_NE(PixelAt(30, 20), kOrange);
  ASSERT_TRUE(Draw({60, 40}));
  EXPECT_EQ(PixelAt(0, 0), kOrange);
  EXPECT_EQ(PixelAt(30, 20), kOrange);
  EXPECT_EQ(PixelAt(59, 39), kOrange);
}

TEST_F(PaintingTest, AFrameSmallerThanTheWindowLeavesTheRest) {
  ASSERT_TRUE(Draw({30, 20}));
  EXPECT_EQ(PixelAt(29, 19), kOrange);
  EXPECT_NE(PixelAt(30, 20), kOrange);
}

TEST_F(PaintingTest, AFrameLargerThanTheWindowIsCut) {
  ASSERT_TRUE(Draw({100, 100}));
  EXPECT_EQ(PixelAt(59, 39), kOrange);
}

TEST_F(PaintingTest, AWindowBecomesNoLayeredOne) {
  SuppliedSetWindowLongW(window_, GWL_EXSTYLE, WS_EX_LAYERED | WS_EX_NOPARENTNOTIFY);
  EXPECT_EQ(GetWindowLongW(window_, GWL_EXSTYLE) & (WS_EX_LAYERED | WS_EX_NOPARENTNOTIFY),
            WS_EX_NOPARENTNOTIFY);
}

TEST_F(PaintingTest, OtherValuesOfAWindowAreSet) {
  SuppliedSetWindowLongW(window_, GWLP_USERDATA, WS_EX_LAYERED);
  EXPECT_EQ(GetWindowLongW(window_, GWLP_USERDATA), WS_EX_LAYERED);
}

TEST_F(PaintingTest, AWindowThatIsGoneIsNotDrawn) {
  DestroyWindow(window_);
  EXPECT_FALSE(Draw({60, 40}));
}

TEST_F(PaintingTest, ATranslucentWindowStaysALayeredOne) {
  SetPropW(parent_, kTranslucent, reinterpret_cast<HANDLE>(ULONG_PTR{1}));
  SuppliedSetWindowLongW(parent_, GWL_EXSTYLE, WS_EX_LAYERED);
  EXPECT_TRUE(GetWindowLongW(parent_, GWL_EXSTYLE) & WS_EX_LAYERED);
  RemovePropW(parent_, kTranslucent);
}

}  // namespace
}  // namespace kz::wine
