#include "devtools/view/pixel_format.h"

#include <algorithm>
#include <utility>

namespace cefedition {
namespace {

constexpr size_t kBytesPerPixel = 4;
constexpr unsigned kFull = 255;

uint8_t Multiply(uint8_t colour, unsigned alpha) {
  return static_cast<uint8_t>((colour * alpha + kFull / 2) / kFull);
}

uint8_t Divide(uint8_t colour, unsigned alpha) {
  if (alpha == 0)
    return 0;
  return static_cast<uint8_t>(std::min((colour * kFull + alpha / 2) / alpha, kFull));
}

template <typename PixelFunction>
std::vector<uint8_t> MapPixels(std::span<const uint8_t> pixels, PixelFunction function) {
  std::vector<uint8_t> out(pixels.begin(),
                           pixels.end() - static_cast<ptrdiff_t>(pixels.size() % kBytesPerPixel));
  for (size_t at = 0; at < out.size(); at += kBytesPerPixel)
    function(&out[at]);
  return out;
}

}  // namespace

std::vector<uint8_t> ToStraightBgra(std::span<const uint8_t> pixels,
                                    ColorOrder order,
                                    AlphaForm alpha) {
  return MapPixels(pixels, [&](uint8_t* pixel) {
    if (order == ColorOrder::kRgba)
      std::swap(pixel[0], pixel[2]);
    if (alpha == AlphaForm::kOpaque)
      pixel[3] = kFull;
    if (alpha == AlphaForm::kPremultiplied)
      std::transform(pixel, pixel + 3, pixel, [&](uint8_t c) { return Divide(c, pixel[3]); });
  });
}

std::vector<uint8_t> FromStraightBgra(std::span<const uint8_t> bgra,
                                      ColorOrder order,
                                      AlphaForm alpha) {
  return MapPixels(bgra, [&](uint8_t* pixel) {
    if (alpha == AlphaForm::kPremultiplied)
      std::transform(pixel, pixel + 3, pixel, [&](uint8_t c) { return Multiply(c, pixel[3]); });
    if (alpha == AlphaForm::kOpaque)
      pixel[3] = kFull;
    if (order == ColorOrder::kRgba)
      std::swap(pixel[0], pixel[2]);
  });
}

}  // namespace cefedition
