#include "base64.h"

#include <array>

namespace cefedition {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr uint8_t kNone = 0xFF;

constexpr std::array<uint8_t, 256> MakeValues() {
  std::array<uint8_t, 256> values = {};
  values.fill(kNone);
  for (size_t i = 0; i < kAlphabet.size(); ++i) {
    values[static_cast<uint8_t>(kAlphabet[i])] = static_cast<uint8_t>(i);
  }
  return values;
}

constexpr std::array<uint8_t, 256> kValues = MakeValues();

}  // namespace

std::string Base64Encode(std::span<const uint8_t> data) {
  std::string text;
  text.reserve((data.size() + 2) / 3 * 4);
  for (size_t i = 0; i < data.size(); i += 3) {
    const size_t count = std::min<size_t>(3, data.size() - i);
    uint32_t bits = 0;
    for (size_t k = 0; k < 3; ++k) {
      bits = (bits << 8) | (k < count ? data[i + k] : 0u);
    }
    for (size_t k = 0; k < 4; ++k) {
      text.push_back(k <= count ? kAlphabet[(bits >> (18 - 6 * k)) & 0x3F] : '=');
    }
  }
  return text;
}

std::optional<std::vector<uint8_t>> Base64Decode(std::string_view text) {
  if (text.size() % 4 != 0) {
    return std::nullopt;
  }
  size_t padding = 0;
  while (padding < 2 && text.ends_with('=')) {
    text.remove_suffix(1);
    ++padding;
  }
  std::vector<uint8_t> data;
  data.reserve(text.size() / 4 * 3 + 2);
  uint32_t bits = 0;
  unsigned held = 0;
  for (const char c : text) {
    const uint8_t value = kValues[static_cast<uint8_t>(c)];
    if (value == kNone) {
      return std::nullopt;
    }
    bits = (bits << 6) | value;
    held += 6;
    if (held >= 8) {
      held -= 8;
      data.push_back(static_cast<uint8_t>(bits >> held));
    }
  }
  return data;
}

}  // namespace cefedition
