// Reads a steps file, which is in JSON Lines: one object per line, whose member "do" names the
// step.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "portable/json.h"
#include "portable/steps_table.h"

namespace kzhost {

// One step, already checked: it has the members that it requires and none that it does not know,
// and each is of its kind.
struct Step {
  int line = 0;
  Verb verb = Verb::kQuit;
  Json members;

  bool Has(const char* name) const { return members.contains(name); }
  std::string Text(const char* name, const std::string& fallback = {}) const;
  bool Flag(const char* name, bool fallback) const;
  int Number(const char* name, int fallback) const;
  // Returns the member "timeout", which is in milliseconds; 30 seconds without it.
  std::chrono::milliseconds Timeout() const;
};

// What is wrong with a steps file, and where.
struct StepsError {
  int line = 0;
  std::string message;
};

// Reads the steps in `text`. Blank lines and those whose first character is "#" are skipped; a
// UTF-8 byte order mark and carriage returns are allowed. The first wrong line ends the reading.
std::variant<std::vector<Step>, StepsError> ReadSteps(std::string_view text);

// Returns "FILE:LINE: message".
std::string ToText(const std::string& file, const StepsError& error);

// The three parts of a colour. ReadColour reads them from a text that must have the form "#rrggbb".
struct Colour {
  int red = 0;
  int green = 0;
  int blue = 0;
};
Colour ReadColour(const std::string& text);

}  // namespace kzhost
