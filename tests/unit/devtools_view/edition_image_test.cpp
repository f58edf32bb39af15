#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "devtools/view/image_codec.h"
#include "include/cef_image.h"

namespace {

using Bytes = std::vector<uint8_t>;

Bytes ContentOf(const CefRefPtr<CefBinaryValue>& value) {
  if (!value)
    return {};
  Bytes bytes(value->GetSize());
  value->GetData(bytes.data(), bytes.size(), 0);
  return bytes;
}

Bytes Pixels(int count, const Bytes& pixel) {
  Bytes pixels;
  for (int at = 0; at < count; ++at)
    pixels.insert(pixels.end(), pixel.begin(), pixel.end());
  return pixels;
}

bool AddFlat(const CefRefPtr<CefImage>& image, float scale, int width, int height, Bytes pixel) {
  const Bytes pixels = Pixels(width * height, pixel);
  return image->AddBitmap(scale, width, height, CEF_COLOR_TYPE_BGRA_8888,
                          CEF_ALPHA_TYPE_POSTMULTIPLIED, pixels.data(), pixels.size());
}

TEST(EditionImage, IsEmptyAtFirst) {
  const auto image = CefImage::CreateImage();
  ASSERT_TRUE(image);
  EXPECT_TRUE(image->IsEmpty());
  EXPECT_EQ(image->GetWidth(), 0U);
  EXPECT_EQ(image->GetHeight(), 0U);
  int width = -1;
  int height = -1;
  float scale = -1;
  EXPECT_FALSE(image->HasRepresentation(1));
  EXPECT_FALSE(image->GetRepresentationInfo(1, scale, width, height));
  EXPECT_FALSE(image->GetAsPNG(1, true, width, height));
  EXPECT_FALSE(image->GetAsJPEG(1, 80, width, height));
  EXPECT_FALSE(
      image->GetAsBitmap(1, CEF_COLOR_TYPE_BGRA_8888, CEF_ALPHA_TYPE_OPAQUE, width, height));
}

TEST(EditionImage, IsTheSameAsItselfAndAsAnotherEmptyOne) {
  const auto one = CefImage::CreateImage();
  const auto other = CefImage::CreateImage();
  EXPECT_TRUE(one->IsSame(other));
  ASSERT_TRUE(AddFlat(one, 1, 2, 2, {1, 2, 3, 255}));
  EXPECT_FALSE(one->IsSame(other));
  EXPECT_TRUE(one->IsSame(one));
  EXPECT_FALSE(one->IsSame(nullptr));
}

TEST(EditionImage, ConvertsBitmaps) {
  const auto image = CefImage::CreateImage();
  const Bytes premultiplied = {64, 0, 32, 128};
  ASSERT_TRUE(image->AddBitmap(1, 1, 1, CEF_COLOR_TYPE_RGBA_8888, CEF_ALPHA_TYPE_PREMULTIPLIED,
                               premultiplied.data(), premultiplied.size()));
  int width = 0;
  int height = 0;
  EXPECT_EQ(ContentOf(image->GetAsBitmap(1, CEF_COLOR_TYPE_BGRA_8888, CEF_ALPHA_TYPE_POSTMULTIPLIED,
                                         width, height)),
            (Bytes{64, 0, 128, 128}));
  EXPECT_EQ(ContentOf(image->GetAsBitmap(1, CEF_COLOR_TYPE_RGBA_8888, CEF_ALPHA_TYPE_PREMULTIPLIED,
                                         width, height)),
            premultiplied);
  EXPECT_EQ(ContentOf(image->GetAsBitmap(1, CEF_COLOR_TYPE_BGRA_8888, CEF_ALPHA_TYPE_OPAQUE, width,
                                         height)),
            (Bytes{64, 0, 128, 255}));
  EXPECT_EQ(width, 1);
  EXPECT_EQ(height, 1);
}

TEST(EditionImage, GivesPngWithAndWithoutTransparency) {
  const auto image = CefImage::CreateImage();
  ASSERT_TRUE(AddFlat(image, 1, 6, 5, {10, 20, 30, 100}));
  int width = 0;
  int height = 0;
  const auto clear = cefedition::DecodeImage(ContentOf(image->GetAsPNG(1, true, width, height)));
  ASSERT_TRUE(clear);
  EXPECT_EQ(clear->bgra, Pixels(30, {10, 20, 30, 100}));
  EXPECT_EQ(width, 6);
  EXPECT_EQ(height, 5);
  const auto opaque = cefedition::DecodeImage(ContentOf(image->GetAsPNG(1, false, width, height)));
  ASSERT_TRUE(opaque);
  EXPECT_EQ(opaque->bgra, Pixels(30, {10, 20, 30, 255}));
}

TEST(EditionImage, TakesEncodedPictures) {
  const cefedition::DecodedImage source{4, 3, Pixels(12, {50, 60, 70, 255})};
  const Bytes png = cefedition::EncodePng(source);
  const Bytes jpeg = cefedition::EncodeJpeg(source, 90);
  const auto image = CefImage::CreateImage();
  EXPECT_TRUE(image->AddPNG(1, png.data(), png.size()));
  EXPECT_TRUE(image->AddJPEG(2, jpeg.data(), jpeg.size()));
  EXPECT_EQ(image->GetWidth(), 4U);
  EXPECT_EQ(image->GetHeight(), 3U);
  int width = 0;
  int height = 0;
  const auto back = cefedition::DecodeImage(ContentOf(image->GetAsJPEG(2, 90, width, height)),
                                            cefedition::ImageKind::kJpeg);
  ASSERT_TRUE(back);
  EXPECT_EQ(back->width, 4);
}

TEST(EditionImage, RefusesThePicturesOfAnotherKind) {
  const cefedition::DecodedImage source{4, 3, Pixels(12, {50, 60, 70, 255})};
  const Bytes png = cefedition::EncodePng(source);
  const Bytes jpeg = cefedition::EncodeJpeg(source, 90);
  const auto image = CefImage::CreateImage();
  EXPECT_FALSE(image->AddPNG(1, jpeg.data(), jpeg.size()));
  EXPECT_FALSE(image->AddJPEG(1, png.data(), png.size()));
  EXPECT_FALSE(image->AddPNG(1, nullptr, 100));
  EXPECT_FALSE(image->AddPNG(1, png.data(), 0));
  EXPECT_FALSE(image->AddPNG(1, png.data(), png.size() / 2));
  EXPECT_TRUE(image->IsEmpty());
}

TEST(EditionImage, RefusesImpossibleBitmaps) {
  const auto image = CefImage::CreateImage();
  const Bytes pixels(16);
  const auto add = [&](float scale, int width, int height, const void* data, size_t size) {
    return image->AddBitmap(scale, width, height, CEF_COLOR_TYPE_BGRA_8888, CEF_ALPHA_TYPE_OPAQUE,
                            data, size);
  };
  EXPECT_FALSE(add(1, 2, 2, pixels.data(), 15)) << "a byte short";
  EXPECT_FALSE(add(1, 0, 2, pixels.data(), 16));
  EXPECT_FALSE(add(1, 2, -2, pixels.data(), 16));
  EXPECT_FALSE(add(1, 2, 2, nullptr, 16));
  EXPECT_FALSE(add(0, 2, 2, pixels.data(), 16));
  EXPECT_FALSE(add(-1, 2, 2, pixels.data(), 16));
  EXPECT_FALSE(add(std::numeric_limits<float>::quiet_NaN(), 2, 2, pixels.data(), 16));
  EXPECT_FALSE(add(1, 1 << 20, 1 << 20, pixels.data(), 16));
  EXPECT_TRUE(image->IsEmpty());
  EXPECT_TRUE(add(1, 2, 2, pixels.data(), 16));
}

TEST(EditionImage, AnswersWithTheClosestScale) {
  const auto image = CefImage::CreateImage();
  ASSERT_TRUE(AddFlat(image, 1, 10, 8, {0, 0, 0, 255}));
  ASSERT_TRUE(AddFlat(image, 2, 20, 16, {0, 0, 0, 255}));
  float scale = 0;
  int width = 0;
  int height = 0;
  ASSERT_TRUE(image->GetRepresentationInfo(1.8F, scale, width, height));
  EXPECT_EQ(scale, 2.0F);
  EXPECT_EQ(width, 20);
  EXPECT_EQ(height, 16);
  ASSERT_TRUE(image->GetRepresentationInfo(0.2F, scale, width, height));
  EXPECT_EQ(scale, 1.0F);
  EXPECT_TRUE(image->HasRepresentation(2));
  EXPECT_FALSE(image->HasRepresentation(1.8F));
}

TEST(EditionImage, MeasuresInDensityIndependentPixels) {
  const auto image = CefImage::CreateImage();
  ASSERT_TRUE(AddFlat(image, 2, 20, 16, {0, 0, 0, 255}));
  EXPECT_EQ(image->GetWidth(), 10U);
  EXPECT_EQ(image->GetHeight(), 8U);
}

TEST(EditionImage, ReplacesAndRemovesARepresentation) {
  const auto image = CefImage::CreateImage();
  ASSERT_TRUE(AddFlat(image, 1, 1, 1, {1, 1, 1, 255}));
  ASSERT_TRUE(AddFlat(image, 1, 1, 1, {2, 2, 2, 255}));
  int width = 0;
  int height = 0;
  EXPECT_EQ(ContentOf(image->GetAsBitmap(1, CEF_COLOR_TYPE_BGRA_8888, CEF_ALPHA_TYPE_OPAQUE, width,
                                         height)),
            (Bytes{2, 2, 2, 255}));
  EXPECT_FALSE(image->RemoveRepresentation(2));
  EXPECT_TRUE(image->RemoveRepresentation(1));
  EXPECT_TRUE(image->IsEmpty());
}

}  // namespace
