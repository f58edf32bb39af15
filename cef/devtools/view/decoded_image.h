#pragma once

#include <cstdint>
#include <vector>

namespace cefedition {

/// A picture in memory. Rows run from the top down without padding, so that a row is
/// `width * 4` bytes; each pixel is blue, green, red, alpha, and the colours are not multiplied by
/// the alpha value.
struct DecodedImage {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> bgra;
};

}  // namespace cefedition
