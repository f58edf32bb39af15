#include "devtools/view/pixel_format.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

using Bytes = std::vector<uint8_t>;

TEST(PixelFormat, SwapsRedAndBlueForRgbaOnly) {
  const Bytes pixel = {10, 20, 30, 255};
  EXPECT_EQ(ToStraightBgra(pixel, ColorOrder::kBgra, AlphaForm::kStraight), pixel);
  EXPECT_EQ(ToStraightBgra(pixel, ColorOrder::kRgba, AlphaForm::kStraight),
            (Bytes{30, 20, 10, 255}));
  EXPECT_EQ(FromStraightBgra(pixel, ColorOrder::kRgba, AlphaForm::kStraight),
            (Bytes{30, 20, 10, 255}));
}

TEST(PixelFormat, IgnoresTheAlphaByteOfAnOpaquePicture) {
  EXPECT_EQ(ToStraightBgra(Bytes{10, 20, 30, 0}, ColorOrder::kBgra, AlphaForm::kOpaque),
            (Bytes{10, 20, 30, 255}));
  EXPECT_EQ(FromStraightBgra(Bytes{10, 20, 30, 7}, ColorOrder::kBgra, AlphaForm::kOpaque),
            (Bytes{10, 20, 30, 255}));
}

TEST(PixelFormat, DividesPremultipliedColours) {
  EXPECT_EQ(ToStraightBgra(Bytes{64, 32, 0, 128}, ColorOrder::kBgra, AlphaForm::kPremultiplied),
            (Bytes{128, 64, 0, 128}));
}

TEST(PixelFormat, MultipliesColoursForPremultipliedForm) {
  EXPECT_EQ(FromStraightBgra(Bytes{128, 64, 0, 128}, ColorOrder::kBgra, AlphaForm::kPremultiplied),
            (Bytes{64, 32, 0, 128}));
}

TEST(PixelFormat, GivesBlackForFullyTransparentPremultipliedPixels) {
  EXPECT_EQ(ToStraightBgra(Bytes{9, 9, 9, 0}, ColorOrder::kBgra, AlphaForm::kPremultiplied),
            (Bytes{0, 0, 0, 0}));
}

TEST(PixelFormat, ClampsPremultipliedColoursAboveTheirAlpha) {
  EXPECT_EQ(ToStraightBgra(Bytes{200, 0, 0, 100}, ColorOrder::kBgra, AlphaForm::kPremultiplied),
            (Bytes{255, 0, 0, 100}));
}

TEST(PixelFormat, KeepsPremultipliedPixelsThroughBothConversions) {
  for (int alpha = 0; alpha <= 255; ++alpha) {
    for (int colour = 0; colour <= alpha; ++colour) {
      const Bytes pixel = {static_cast<uint8_t>(colour), 0, static_cast<uint8_t>(alpha),
                           static_cast<uint8_t>(alpha)};
      const Bytes straight = ToStraightBgra(pixel, ColorOrder::kRgba, AlphaForm::kPremultiplied);
      ASSERT_EQ(FromStraightBgra(straight, ColorOrder::kRgba, AlphaForm::kPremultiplied), pixel)
          << "colour " << colour << " alpha " << alpha;
    }
  }
}

TEST(PixelFormat, DropsARestShorterThanAPixel) {
  EXPECT_EQ(ToStraightBgra(Bytes{1, 2, 3, 4, 5, 6}, ColorOrder::kBgra, AlphaForm::kStraight),
            (Bytes{1, 2, 3, 4}));
  EXPECT_TRUE(ToStraightBgra(Bytes{}, ColorOrder::kBgra, AlphaForm::kStraight).empty());
}

}  // namespace
}  // namespace cefedition
