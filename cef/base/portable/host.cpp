#include "host.h"

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

#include "ascii.h"
#include "utf.h"

namespace cefedition {
namespace {

std::vector<std::string_view> Split(std::string_view text, char delimiter) {
  std::vector<std::string_view> parts;
  for (size_t start = 0;;) {
    const size_t end = text.find(delimiter, start);
    parts.push_back(text.substr(start, end - start));
    if (end == std::string_view::npos) {
      return parts;
    }
    start = end + 1;
  }
}

// --- Punycode (RFC 3492) ---

constexpr uint32_t kBase = 36;
constexpr uint32_t kTMin = 1;
constexpr uint32_t kTMax = 26;

uint32_t Adapt(uint32_t delta, uint32_t points, bool first) {
  delta = first ? delta / 700 : delta / 2;
  delta += delta / points;
  uint32_t k = 0;
  for (; delta > ((kBase - kTMin) * kTMax) / 2; k += kBase) {
    delta /= kBase - kTMin;
  }
  return k + (kBase - kTMin + 1) * delta / (delta + 38);
}

char Digit(uint32_t value) {
  return static_cast<char>(value < 26 ? 'a' + value : '0' + (value - 26));
}

std::optional<std::string> Punycode(const std::u32string& label) {
  // Longer ones are no host names, and the numbers below would overflow.
  constexpr size_t kMaxLabel = 255;
  if (label.size() > kMaxLabel) {
    return std::nullopt;
  }
  std::string output;
  for (const char32_t point : label) {
    if (point < 0x80) {
      output.push_back(static_cast<char>(point));
    }
  }
  uint32_t handled = static_cast<uint32_t>(output.size());
  const uint32_t basic = handled;
  if (basic > 0) {
    output.push_back('-');
  }
  uint32_t n = 0x80;
  uint32_t delta = 0;
  uint32_t bias = 72;
  while (handled < label.size()) {
    uint32_t next = std::numeric_limits<uint32_t>::max();
    for (const char32_t point : label) {
      if (point >= n && point < next) {
        next = point;
      }
    }
    delta += (next - n) * (handled + 1);
    n = next;
    for (const char32_t point : label) {
      if (point < n) {
        ++delta;
      }
      if (point != n) {
        continue;
      }
      uint32_t q = delta;
      for (uint32_t k = kBase;; k += kBase) {
        const uint32_t t = k <= bias ? kTMin : k >= bias + kTMax ? kTMax : k - bias;
        if (q < t) {
          break;
        }
        output.push_back(Digit(t + (q - t) % (kBase - t)));
        q = (q - t) / (kBase - t);
      }
      output.push_back(Digit(q));
      bias = Adapt(delta, handled + 1, handled == basic);
      delta = 0;
      ++handled;
    }
    ++delta;
    ++n;
  }
  return output;
}

std::u32string ToPoints(std::string_view text) {
  std::u32string points;
  const std::u16string units = Utf8ToUtf16(text);
  for (size_t i = 0; i < units.size(); ++i) {
    if (units[i] >= 0xD800 && units[i] < 0xDC00) {
      points.push_back(0x10000 + ((units[i] - 0xD800u) << 10) + (units[i + 1] - 0xDC00u));
      ++i;
    } else {
      points.push_back(units[i]);
    }
  }
  return points;
}

std::optional<std::string> ToAscii(const std::string& host) {
  std::string result;
  for (const std::string_view label : Split(host, '.')) {
    if (!result.empty() || label.data() != host.data()) {
      result.push_back('.');
    }
    const std::u32string points = ToPoints(label);
    if (std::all_of(points.begin(), points.end(), [](char32_t point) { return point < 0x80; })) {
      result += label;
      continue;
    }
    const std::optional<std::string> encoded = Punycode(points);
    if (!encoded) {
      return std::nullopt;
    }
    result += "xn--" + *encoded;
  }
  return result;
}

// --- Addresses ---

// A number as the C language writes it: 0x before hexadecimal, 0 before octal digits.
std::optional<uint64_t> ParseNumber(std::string_view text) {
  if (text.empty()) {
    return std::nullopt;
  }
  unsigned base = 10;
  if (text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    base = 16;
    text.remove_prefix(2);
  } else if (text.size() >= 2 && text[0] == '0') {
    base = 8;
    text.remove_prefix(1);
  }
  uint64_t value = 0;
  for (const char c : text) {
    const int digit = HexValue(c);
    if (digit < 0 || static_cast<unsigned>(digit) >= base) {
      return std::nullopt;
    }
    // Any number beyond 32 bits is too large, however far beyond.
    value = std::min<uint64_t>(value * base + static_cast<unsigned>(digit), uint64_t{1} << 32);
  }
  return value;
}

bool EndsInNumber(std::string_view host) {
  std::vector<std::string_view> labels = Split(host, '.');
  if (labels.back().empty() && labels.size() > 1) {
    labels.pop_back();
  }
  const std::string_view last = labels.back();
  return !last.empty() &&
         (std::all_of(last.begin(), last.end(), [](char c) { return IsDigit(c); }) ||
          (last.starts_with("0x") && ParseNumber(last)));
}

std::optional<uint32_t> ParseIpv4(std::string_view host) {
  std::vector<std::string_view> labels = Split(host, '.');
  if (labels.back().empty() && labels.size() > 1) {
    labels.pop_back();
  }
  if (labels.size() > 4) {
    return std::nullopt;
  }
  uint64_t address = 0;
  for (size_t i = 0; i < labels.size(); ++i) {
    const std::optional<uint64_t> number = ParseNumber(labels[i]);
    // The last number fills all bytes that are left.
    const size_t bytes = i + 1 == labels.size() ? 4 - i : 1;
    if (!number || *number >= uint64_t{1} << (8 * bytes)) {
      return std::nullopt;
    }
    address |= *number << (8 * (4 - i - bytes));
  }
  return static_cast<uint32_t>(address);
}

std::string FormatIpv4(uint32_t address) {
  return std::to_string(address >> 24) + '.' + std::to_string((address >> 16) & 0xFF) + '.' +
         std::to_string((address >> 8) & 0xFF) + '.' + std::to_string(address & 0xFF);
}

using Ipv6 = std::array<uint16_t, 8>;

std::optional<uint16_t> ParsePiece(std::string_view text) {
  if (text.empty() || text.size() > 4) {
    return std::nullopt;
  }
  unsigned value = 0;
  for (const char c : text) {
    const int digit = HexValue(c);
    if (digit < 0) {
      return std::nullopt;
    }
    value = value * 16 + static_cast<unsigned>(digit);
  }
  return static_cast<uint16_t>(value);
}

// Four plain decimal numbers, as they may end an IPv6 address.
std::optional<uint32_t> ParseDottedQuad(std::string_view text) {
  const std::vector<std::string_view> parts = Split(text, '.');
  uint32_t address = 0;
  for (const std::string_view part : parts) {
    const bool decimal = !part.empty() && part.size() <= 3 &&
                         std::all_of(part.begin(), part.end(), [](char c) { return IsDigit(c); }) &&
                         (part.size() == 1 || part[0] != '0');
    const std::optional<uint64_t> number = decimal ? ParseNumber(part) : std::nullopt;
    if (!number || *number > 255) {
      return std::nullopt;
    }
    address = (address << 8) | static_cast<uint32_t>(*number);
  }
  return parts.size() == 4 ? std::optional<uint32_t>(address) : std::nullopt;
}

// The pieces of one side of "::", or of a whole address without one.
std::optional<std::vector<uint16_t>> ParsePieces(std::string_view text, bool at_end) {
  std::vector<uint16_t> pieces;
  if (text.empty()) {
    return pieces;
  }
  const std::vector<std::string_view> parts = Split(text, ':');
  for (size_t i = 0; i < parts.size(); ++i) {
    if (at_end && i + 1 == parts.size() && parts[i].find('.') != std::string_view::npos) {
      const std::optional<uint32_t> quad = ParseDottedQuad(parts[i]);
      if (!quad) {
        return std::nullopt;
      }
      pieces.push_back(static_cast<uint16_t>(*quad >> 16));
      pieces.push_back(static_cast<uint16_t>(*quad));
      continue;
    }
    const std::optional<uint16_t> piece = ParsePiece(parts[i]);
    if (!piece) {
      return std::nullopt;
    }
    pieces.push_back(*piece);
  }
  return pieces;
}

std::optional<Ipv6> ParseIpv6(std::string_view text) {
  Ipv6 address = {};
  const size_t gap = text.find("::");
  if (gap == std::string_view::npos) {
    const auto pieces = ParsePieces(text, true);
    if (!pieces || pieces->size() != address.size()) {
      return std::nullopt;
    }
    std::copy(pieces->begin(), pieces->end(), address.begin());
    return address;
  }
  const auto before = ParsePieces(text.substr(0, gap), false);
  const auto after = ParsePieces(text.substr(gap + 2), true);
  if (!before || !after || before->size() + after->size() >= address.size()) {
    return std::nullopt;
  }
  std::copy(before->begin(), before->end(), address.begin());
  std::copy_backward(after->begin(), after->end(), address.end());
  return address;
}

std::string FormatIpv6(const Ipv6& address) {
  // The first of the longest runs of two or more zeros is left out.
  size_t gap = address.size();
  size_t gap_size = 1;
  for (size_t i = 0; i < address.size(); ++i) {
    size_t size = 0;
    while (i + size < address.size() && address[i + size] == 0) {
      ++size;
    }
    if (size > gap_size) {
      gap = i;
      gap_size = size;
    }
  }
  std::string text = "[";
  for (size_t i = 0; i < address.size(); ++i) {
    if (i == gap) {
      text += "::";
      i += gap_size - 1;
      continue;
    }
    if (text.back() != '[' && text.back() != ':') {
      text.push_back(':');
    }
    constexpr char kDigits[] = "0123456789abcdef";
    bool started = false;
    for (int shift = 12; shift >= 0; shift -= 4) {
      const int digit = (address[i] >> shift) & 0xF;
      started = started || digit != 0 || shift == 0;
      if (started) {
        text.push_back(kDigits[digit]);
      }
    }
  }
  return text + "]";
}

std::string Unescape(std::string_view text) {
  std::string result;
  for (size_t pos = 0; pos < text.size(); ++pos) {
    const int byte = EscapedByte(text, pos);
    result.push_back(byte < 0 ? text[pos] : static_cast<char>(byte));
    pos += byte < 0 ? 0 : 2;
  }
  return result;
}

bool IsForbidden(char c) {
  const auto value = static_cast<unsigned char>(c);
  return value <= 0x20 || value == 0x7F ||
         std::string_view("#%/:<>?@[\\]^|").find(c) != std::string_view::npos;
}

}  // namespace

std::optional<std::string> CanonicalHost(std::string_view text) {
  if (text.starts_with('[')) {
    const std::optional<Ipv6> address =
        text.ends_with(']') ? ParseIpv6(text.substr(1, text.size() - 2)) : std::nullopt;
    return address ? std::optional(FormatIpv6(*address)) : std::nullopt;
  }
  const std::string unescaped = ToLowerAscii(Unescape(text));
  bool valid = true;
  Utf8ToUtf16(unescaped, &valid);
  if (!valid || std::any_of(unescaped.begin(), unescaped.end(), IsForbidden)) {
    return std::nullopt;
  }
  std::optional<std::string> host = ToAscii(unescaped);
  if (!host || !EndsInNumber(*host)) {
    return host;
  }
  const std::optional<uint32_t> address = ParseIpv4(*host);
  return address ? std::optional(FormatIpv4(*address)) : std::nullopt;
}

}  // namespace cefedition
