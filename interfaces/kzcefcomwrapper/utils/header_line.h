// Header lines as the hub library writes them. Plain texts: no state, no platform.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kzcef {

struct HeaderLine {
  std::string name;
  std::string value;

  friend bool operator==(const HeaderLine&, const HeaderLine&) = default;
};

// Returns the name before the colon and the value behind it, both trimmed. Returns nothing for a
// line without a colon and for one with several, so a line whose value holds a colon (a URL, a time
// of day) is not a header: hubs are written against that.
std::optional<HeaderLine> ParseHeaderLine(std::string_view line);

}  // namespace kzcef
