#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace cefedition {

/// UTF-8 of one code point; empty for surrogates and for what lies beyond Unicode.
std::string CodePointToUtf8(uint32_t code_point);

/// Puts together the characters that arrive as UTF-16 code units, one message each. One object a
/// window; not for use from several threads.
class TextAssembler {
 public:
  /// The character that `unit` completes, as UTF-8. Empty while the second half of a surrogate pair
  /// is awaited. A half without its partner is dropped.
  std::optional<std::string> Add(uint16_t unit);

 private:
  uint16_t high_surrogate_ = 0;
};

}  // namespace cefedition
