#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace cefedition {

// Conversions between this edition's pixels (see DecodedImage) and the forms in which a caller may
// hold them. Nothing here needs Windows.

enum class ColorOrder { kRgba, kBgra };

enum class AlphaForm {
  /// The alpha byte is not looked at going in, and 255 coming out.
  kOpaque,
  /// The colours are multiplied by the alpha value.
  kPremultiplied,
  kStraight,
};

/// To blue, green, red, straight alpha. A rest of fewer than four bytes is dropped.
std::vector<uint8_t> ToStraightBgra(std::span<const uint8_t> pixels,
                                    ColorOrder order,
                                    AlphaForm alpha);

/// From blue, green, red, straight alpha; the inverse of the above, up to the precision that
/// multiplied colours of low alpha lose.
std::vector<uint8_t> FromStraightBgra(std::span<const uint8_t> bgra,
                                      ColorOrder order,
                                      AlphaForm alpha);

}  // namespace cefedition
