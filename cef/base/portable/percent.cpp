#include "percent.h"

#include "ascii.h"
#include "utf.h"

namespace cefedition {
namespace {

bool IsUndone(char c, const PercentDecodeRule& rule) {
  if (IsAlpha(c) || IsDigit(c)) {
    return true;
  }
  if (c == ' ') {
    return rule.spaces;
  }
  if (c == '/' || c == '\\') {
    return rule.path_separators;
  }
  if (std::string_view("!\"'()*-.<>[]^_`{|}~").find(c) != std::string_view::npos) {
    return true;
  }
  return rule.special && std::string_view("#$%&+,:;=?@").find(c) != std::string_view::npos;
}

// The bytes escaped one after the other from |pos| on that make one character beyond ASCII; empty
// if they make none.
std::string EscapedCharacter(std::string_view text, size_t pos) {
  std::string bytes;
  for (size_t size = 1; size <= 4; ++size, pos += 3) {
    const int byte = EscapedByte(text, pos);
    if (byte < 0x80) {
      break;
    }
    bytes.push_back(static_cast<char>(byte));
    bool valid = false;
    if (Utf8ToUtf16(bytes, &valid); valid) {
      return bytes;
    }
  }
  return std::string();
}

}  // namespace

std::string PercentEncode(std::string_view text, bool use_plus) {
  std::string result;
  for (const char c : text) {
    if (IsAlpha(c) || IsDigit(c) ||
        std::string_view("-_.!~*'()").find(c) != std::string_view::npos) {
      result.push_back(c);
    } else if (c == ' ' && use_plus) {
      result.push_back('+');
    } else {
      AppendEscaped(c, &result);
    }
  }
  return result;
}

std::string PercentDecode(std::string_view text, const PercentDecodeRule& rule) {
  std::string result;
  for (size_t pos = 0; pos < text.size();) {
    const int byte = EscapedByte(text, pos);
    if (byte >= 0 && byte < 0x80 && IsUndone(static_cast<char>(byte), rule)) {
      result.push_back(static_cast<char>(byte));
      pos += 3;
      continue;
    }
    const std::string character = EscapedCharacter(text, pos);
    if (!character.empty()) {
      result += character;
      pos += character.size() * 3;
      continue;
    }
    result.push_back(text[pos] == '+' && rule.plus_to_space ? ' ' : text[pos]);
    ++pos;
  }
  return result;
}

}  // namespace cefedition
