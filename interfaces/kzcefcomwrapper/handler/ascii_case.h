// Letter case as URLs and media types define it.
#pragma once

#include <algorithm>
#include <string>

namespace kzcef {

// Returns `text` with the letters A to Z in lower case; every other byte stays.
inline std::string LowerAscii(std::string text) {
  std::ranges::transform(text, text.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
  });
  return text;
}

}  // namespace kzcef
