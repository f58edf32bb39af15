// Writes the lines of one record in the form that readers of the log know.

#include "handler/console_record.h"

namespace kzcef {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// The name of a level with its line end, or nothing.
std::string_view LevelLine(int level) {
  switch (level) {
    case 1:
      return "Debug\r\n";
    case 2:
      return "Info\r\n";
    case 3:
      return "Warn\r\n";
    case 4:
      return "Error\r\n";
    default:
      // Readers of the log know this form, so a level without a name ends no line.
      return "";
  }
}

}  // namespace

std::string ConsoleRecord(int level, std::string_view message, std::string_view source, int line) {
  std::string record("Level: ");
  record += LevelLine(level);
  record.append("Message: ").append(message).append(kLineEnd);
  record.append("Source: ").append(source).append(kLineEnd);
  record.append("Line: ").append(std::to_string(line)).append(kLineEnd);
  record.append(23, '-').append(kLineEnd);
  return record;
}

}  // namespace kzcef
