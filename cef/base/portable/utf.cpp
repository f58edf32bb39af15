#include "utf.h"

#include <cstdint>

namespace cefedition {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsLead(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrail(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void Append(char32_t point, std::u16string* text) {
  if (point < 0x10000) {
    text->push_back(static_cast<char16_t>(point));
  } else {
    text->push_back(static_cast<char16_t>(0xD7C0 + (point >> 10)));
    text->push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
  }
}

void Append(char32_t point, std::string* text) {
  if (point < 0x80) {
    text->push_back(static_cast<char>(point));
    return;
  }
  const auto continuation = [&](int shift) {
    text->push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F)));
  };
  if (point < 0x800) {
    text->push_back(static_cast<char>(0xC0 | (point >> 6)));
  } else if (point < 0x10000) {
    text->push_back(static_cast<char>(0xE0 | (point >> 12)));
    continuation(6);
  } else {
    text->push_back(static_cast<char>(0xF0 | (point >> 18)));
    continuation(12);
    continuation(6);
  }
  continuation(0);
}

// Reads the sequence at |*pos| and moves past it. Ill-formed: kReplacement, with |*valid| cleared.
char32_t Next(std::string_view text, size_t* pos, bool* valid) {
  const auto byte = [&](size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t first = byte((*pos)++);
  if (first < 0x80) {
    return first;
  }

  // The second byte has a narrower range after some first bytes: no overlong forms, no surrogates,
  // nothing beyond U+10FFFF.
  int more = 0;
  uint8_t low = 0x80;
  uint8_t high = 0xBF;
  char32_t point = 0;
  if (first >= 0xC2 && first <= 0xDF) {
    more = 1;
    point = first & 0x1F;
  } else if (first >= 0xE0 && first <= 0xEF) {
    more = 2;
    point = first & 0x0F;
    low = first == 0xE0 ? 0xA0 : low;
    high = first == 0xED ? 0x9F : high;
  } else if (first >= 0xF0 && first <= 0xF4) {
    more = 3;
    point = first & 0x07;
    low = first == 0xF0 ? 0x90 : low;
    high = first == 0xF4 ? 0x8F : high;
  } else {
    *valid = false;
    return kReplacement;
  }
  for (; more > 0; --more) {
    if (*pos == text.size() || byte(*pos) < low || byte(*pos) > high) {
      *valid = false;
      return kReplacement;
    }
    point = (point << 6) | (byte((*pos)++) & 0x3F);
    low = 0x80;
    high = 0xBF;
  }
  return point;
}

char32_t Next(std::u16string_view text, size_t* pos, bool* valid) {
  const char16_t unit = text[(*pos)++];
  if (!IsLead(unit) && !IsTrail(unit)) {
    return unit;
  }
  if (IsLead(unit) && *pos < text.size() && IsTrail(text[*pos])) {
    const char32_t lead = unit - 0xD800u;
    const char32_t trail = text[(*pos)++] - 0xDC00u;
    return 0x10000 + (lead << 10) + trail;
  }
  *valid = false;
  return kReplacement;
}

template <typename To, typename From>
To Convert(From text, bool* valid) {
  bool ignored = true;
  bool* const flag = valid ? valid : &ignored;
  *flag = true;
  To result;
  result.reserve(text.size());
  for (size_t pos = 0; pos < text.size();) {
    Append(Next(text, &pos, flag), &result);
  }
  return result;
}

}  // namespace

std::u16string Utf8ToUtf16(std::string_view text, bool* valid) {
  return Convert<std::u16string>(text, valid);
}

std::string Utf16ToUtf8(std::u16string_view text, bool* valid) {
  return Convert<std::string>(text, valid);
}

std::u16string ToWellFormed(std::u16string_view text) {
  return Convert<std::u16string>(text, nullptr);
}

}  // namespace cefedition
