#include "devtools/view/image_codec.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <cstdlib>
#include <numeric>
#include <thread>

namespace cefedition {
namespace {

using Bytes = std::vector<uint8_t>;

DecodedImage MakeImage(int width, int height) {
  DecodedImage image{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.bgra.insert(image.bgra.end(),
                        {static_cast<uint8_t>(x * 7), static_cast<uint8_t>(y * 5),
                         static_cast<uint8_t>(x + y), static_cast<uint8_t>(255 - x)});
    }
  }
  return image;
}

DecodedImage MakeFlatImage(int width, int height, const Bytes& pixel) {
  DecodedImage image{width, height, {}};
  for (int at = 0; at < width * height; ++at)
    image.bgra.insert(image.bgra.end(), pixel.begin(), pixel.end());
  return image;
}

void Append(Bytes& out, uint64_t value, int bytes) {
  for (int at = 0; at < bytes; ++at)
    out.push_back(static_cast<uint8_t>(value >> (8 * at)));
}

// The header and pixels of a 32-bit picture as BMP and ICO files carry them, bottom row first.
Bytes MakeDib(int width, int height, int stated_height, const Bytes& pixel) {
  Bytes out;
  Append(out, 40, 4);
  Append(out, static_cast<uint64_t>(width), 4);
  Append(out, static_cast<uint64_t>(stated_height), 4);
  Append(out, 1, 2);
  Append(out, 32, 2);
  Append(out, 0, 24);
  for (int at = 0; at < width * height; ++at)
    out.insert(out.end(), pixel.begin(), pixel.end());
  return out;
}

Bytes MakeIco(int side, const Bytes& pixel) {
  Bytes dib = MakeDib(side, side, side * 2, pixel);
  dib.insert(dib.end(), static_cast<size_t>(side) * 4, 0);  // the mask: all opaque, rows of 4 bytes
  Bytes out;
  Append(out, 0, 2);
  Append(out, 1, 2);
  Append(out, 1, 2);
  Append(out, static_cast<uint64_t>(side), 1);
  Append(out, static_cast<uint64_t>(side), 1);
  Append(out, 0, 2);
  Append(out, 1, 2);
  Append(out, 32, 2);
  Append(out, dib.size(), 4);
  Append(out, 22, 4);
  out.insert(out.end(), dib.begin(), dib.end());
  return out;
}

Bytes MakeBmp(int width, int height, const Bytes& pixel) {
  const Bytes dib = MakeDib(width, height, height, pixel);
  Bytes out = {'B', 'M'};
  Append(out, 14 + dib.size(), 4);
  Append(out, 0, 4);
  Append(out, 14 + 40, 4);
  out.insert(out.end(), dib.begin(), dib.end());
  return out;
}

// A GIF of one red pixel.
const Bytes kGif = {'G', 'I',  'F', '8', '9', 'a',  1,    0,    1,    0, 0x80, 0,
                    0,   0xFF, 0,   0,   0,   0,    0,    0x2C, 0,    0, 0,    0,
                    1,   0,    1,   0,   0,   0x02, 0x02, 0x44, 0x01, 0, 0x3B};

uint32_t PngCrc(const uint8_t* data, size_t size) {
  uint32_t crc = 0xFFFFFFFFU;
  for (size_t at = 0; at < size; ++at) {
    crc ^= data[at];
    for (int bit = 0; bit < 8; ++bit)
      crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

// Writes another width and height into a PNG's header, with a checksum that fits.
Bytes WithPngSize(Bytes png, uint32_t width, uint32_t height) {
  constexpr size_t kHeaderChunk = 12;
  constexpr size_t kWidth = 16;
  constexpr size_t kChecksum = 29;
  const auto put = [&](size_t at, uint32_t value) {
    for (size_t byte = 0; byte < 4; ++byte)
      png[at + byte] = static_cast<uint8_t>(value >> (24U - 8U * byte));
  };
  put(kWidth, width);
  put(kWidth + 4, height);
  put(kChecksum, PngCrc(&png[kHeaderChunk], kChecksum - kHeaderChunk));
  return png;
}

class ImageCodec : public testing::Test {
 protected:
  void SetUp() override { ASSERT_HRESULT(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
  void TearDown() override { CoUninitialize(); }

  static void ASSERT_HRESULT(HRESULT result) {
    ASSERT_TRUE(SUCCEEDED(result)) << std::hex << result;
  }
};

TEST_F(ImageCodec, KeepsEveryPixelThroughPng) {
  const DecodedImage image = MakeImage(31, 17);
  const auto back = DecodePngOrJpeg(EncodePng(image));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->width, 31);
  EXPECT_EQ(back->height, 17);
  EXPECT_EQ(back->bgra, image.bgra);
}

TEST_F(ImageCodec, WritesAnOpaquePngWithoutAlpha) {
  const DecodedImage image = MakeImage(5, 4);
  const auto back = DecodePngOrJpeg(EncodePng(image, false));
  ASSERT_TRUE(back);
  DecodedImage opaque = image;
  for (size_t at = 3; at < opaque.bgra.size(); at += 4)
    opaque.bgra[at] = 255;
  EXPECT_EQ(back->bgra, opaque.bgra);
}

TEST_F(ImageCodec, ReadsJpegUpToItsPrecision) {
  const DecodedImage image = MakeFlatImage(16, 16, {40, 90, 200, 255});
  const auto back = DecodePngOrJpeg(EncodeJpeg(image, 95));
  ASSERT_TRUE(back);
  ASSERT_EQ(back->bgra.size(), image.bgra.size());
  for (size_t at = 0; at < back->bgra.size(); ++at)
    ASSERT_LE(std::abs(back->bgra[at] - image.bgra[at]), 6) << "byte " << at;
}

// Wine's encoder does not look at the quality, so that there "smaller" cannot be asked for.
TEST_F(ImageCodec, MakesNoLargerJpegAtALowerQuality) {
  const DecodedImage image = MakeImage(64, 64);
  const Bytes low = EncodeJpeg(image, 5);
  const Bytes high = EncodeJpeg(image, 95);
  EXPECT_FALSE(low.empty());
  EXPECT_LE(low.size(), high.size());
  EXPECT_EQ(EncodeJpeg(image, -20), EncodeJpeg(image, 0));
  EXPECT_EQ(EncodeJpeg(image, 900), EncodeJpeg(image, 100));
}

TEST_F(ImageCodec, ReadsIcons) {
  const auto icon = DecodeImage(MakeIco(16, {1, 2, 3, 255}));
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->width, 16);
  EXPECT_EQ(icon->height, 16);
  EXPECT_EQ(icon->bgra, MakeFlatImage(16, 16, {1, 2, 3, 255}).bgra);
}

TEST_F(ImageCodec, ReadsBitmapsAndGifs) {
  const auto bitmap = DecodeImage(MakeBmp(3, 3, {9, 8, 7, 255}));
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->width, 3);
  EXPECT_EQ(bitmap->bgra[0], 9);
  const auto gif = DecodeImage(kGif);
  ASSERT_TRUE(gif);
  EXPECT_EQ(gif->bgra, (Bytes{0, 0, 255, 255}));
}

TEST_F(ImageCodec, TakesOnlyTheKindsAskedFor) {
  const DecodedImage image = MakeImage(4, 4);
  const Bytes png = EncodePng(image);
  const Bytes jpeg = EncodeJpeg(image, 80);
  EXPECT_TRUE(DecodeImage(png, ImageKind::kPng));
  EXPECT_FALSE(DecodeImage(png, ImageKind::kJpeg));
  EXPECT_TRUE(DecodeImage(jpeg, ImageKind::kJpeg));
  EXPECT_FALSE(DecodeImage(jpeg, ImageKind::kPng));
  EXPECT_TRUE(DecodePngOrJpeg(png));
  EXPECT_TRUE(DecodePngOrJpeg(jpeg));
  EXPECT_FALSE(DecodePngOrJpeg(kGif));
}

TEST_F(ImageCodec, RefusesNothingAndNonsense) {
  EXPECT_FALSE(DecodeImage({}));
  EXPECT_FALSE(DecodeImage(Bytes(1000, 0)));
  const std::string text = "<html><body>no picture</body></html>";
  EXPECT_FALSE(DecodeImage(Bytes(text.begin(), text.end())));
}

TEST_F(ImageCodec, RefusesAPngCutShortAnywhere) {
  const Bytes png = EncodePng(MakeImage(40, 40));
  // The last twelve bytes are the end chunk, which a reader may do without.
  for (size_t size = 0; size + 16 < png.size(); size += 13)
    EXPECT_FALSE(DecodeImage(std::span(png).first(size))) << size << " of " << png.size();
}

TEST_F(ImageCodec, RefusesAJpegCutShortAnywhere) {
  const Bytes jpeg = EncodeJpeg(MakeImage(64, 64), 90);
  for (size_t size = 0; size < jpeg.size(); size += 97)
    EXPECT_FALSE(DecodeImage(std::span(jpeg).first(size))) << size << " of " << jpeg.size();
  EXPECT_FALSE(DecodeImage(std::span(jpeg).first(jpeg.size() - 2)));
}

TEST_F(ImageCodec, SurvivesDamageToAnyByte) {
  const Bytes png = EncodePng(MakeImage(20, 20));
  int refused = 0;
  for (size_t at = 0; at < png.size(); at += 3) {
    Bytes damaged = png;
    damaged[at] = static_cast<uint8_t>(~damaged[at]);
    const auto image = DecodeImage(damaged);
    if (!image)
      ++refused;
    else
      EXPECT_EQ(image->bgra.size(), static_cast<size_t>(image->width * image->height * 4));
  }
  EXPECT_GT(refused, 0);
}

TEST_F(ImageCodec, RefusesAPictureOfHugeSize) {
  const Bytes png = EncodePng(MakeImage(4, 4));
  EXPECT_TRUE(DecodeImage(WithPngSize(png, 4, 4))) << "the rewritten header is sound";
  EXPECT_FALSE(DecodeImage(WithPngSize(png, kMaxImageSide + 1, 1)));
  EXPECT_FALSE(DecodeImage(WithPngSize(png, 1, kMaxImageSide + 1)));
  EXPECT_FALSE(DecodeImage(WithPngSize(png, 0x7FFFFFFF, 0x7FFFFFFF)));
  EXPECT_FALSE(DecodeImage(WithPngSize(png, 0, 4)));
  // Whole pictures, which only our own limit keeps out.
  EXPECT_TRUE(DecodeImage(MakeBmp(kMaxImageSide, 1, {1, 2, 3, 255})));
  EXPECT_FALSE(DecodeImage(MakeBmp(kMaxImageSide + 1, 1, {1, 2, 3, 255})));
  EXPECT_FALSE(DecodeImage(MakeBmp(1, kMaxImageSide + 1, {1, 2, 3, 255})));
}

TEST_F(ImageCodec, EncodesNoPictureThatContradictsItself) {
  DecodedImage image = MakeImage(4, 4);
  image.bgra.pop_back();
  EXPECT_TRUE(EncodePng(image).empty());
  image.bgra.resize(4 * 4 * 4 + 1);
  EXPECT_TRUE(EncodePng(image).empty());
  EXPECT_TRUE(EncodePng({}).empty());
  EXPECT_TRUE(EncodePng({-1, -1, Bytes(4)}).empty());
  EXPECT_TRUE(EncodeJpeg({0, 0, {}}, 50).empty());
}

TEST(ImageCodecThreads, WorksOnAThreadWithoutCom) {
  bool decoded = false;
  std::thread([&] {
    const Bytes png = EncodePng(MakeImage(3, 3));
    decoded = DecodeImage(png).has_value();
  }).join();
  EXPECT_TRUE(decoded);
}

}  // namespace
}  // namespace cefedition
