// Splits a header line at its colons and accepts exactly two parts.

#include "utils/header_line.h"

#include <vector>

#include "utils/text.h"

namespace kzcef {

std::optional<HeaderLine> ParseHeaderLine(std::string_view line) {
  const std::vector<std::string> pieces = SplitAt(line, ':');
  if (pieces.size() != 2) {
    return std::nullopt;
  }
  return HeaderLine{Trim(pieces[0]), Trim(pieces[1])};
}

}  // namespace kzcef
