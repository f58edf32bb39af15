#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace cefedition {

// ASCII classes, whatever the locale.
inline bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
inline bool IsAlpha(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
inline char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
inline std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return ToLowerAscii(c); });
  return lower;
}

// The value of a hexadecimal digit, -1 for anything else.
inline int HexValue(char c) {
  if (IsDigit(c)) {
    return c - '0';
  }
  c = ToLowerAscii(c);
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// The byte that |text| escapes at |pos| as %XX, -1 if it does not.
inline int EscapedByte(std::string_view text, size_t pos) {
  if (pos + 2 >= text.size() || text[pos] != '%') {
    return -1;
  }
  const int high = HexValue(text[pos + 1]);
  const int low = HexValue(text[pos + 2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

inline void AppendEscaped(char byte, std::string* text) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  text->push_back('%');
  text->push_back(kDigits[value >> 4]);
  text->push_back(kDigits[value & 0xF]);
}

}  // namespace cefedition
