#include "devtools/view/text_assembler.h"

#include <utility>

namespace cefedition {
namespace {

constexpr bool IsHighSurrogate(uint32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLowSurrogate(uint32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::string CodePointToUtf8(uint32_t code_point) {
  std::string out;
  const auto lead = [&](uint32_t mark, unsigned shift) {
    out.push_back(static_cast<char>(mark | (code_point >> shift)));
  };
  const auto trail = [&](unsigned shift) {
    out.push_back(static_cast<char>(0x80U | ((code_point >> shift) & 0x3FU)));
  };
  if (code_point < 0x80) {
    lead(0, 0);
  } else if (code_point < 0x800) {
    lead(0xC0, 6);
    trail(0);
  } else if (code_point < 0x10000) {
    if (IsHighSurrogate(code_point) || IsLowSurrogate(code_point))
      return out;
    lead(0xE0, 12);
    trail(6);
    trail(0);
  } else if (code_point <= 0x10FFFF) {
    lead(0xF0, 18);
    trail(12);
    trail(6);
    trail(0);
  }
  return out;
}

std::optional<std::string> TextAssembler::Add(uint16_t unit) {
  const uint32_t high = std::exchange(high_surrogate_, uint16_t{0});
  if (IsHighSurrogate(unit)) {
    high_surrogate_ = unit;
    return std::nullopt;
  }
  if (IsLowSurrogate(unit)) {
    if (high == 0)
      return std::nullopt;
    return CodePointToUtf8(0x10000U + ((high - 0xD800U) << 10) + (unit - 0xDC00U));
  }
  return CodePointToUtf8(unit);
}

}  // namespace cefedition
