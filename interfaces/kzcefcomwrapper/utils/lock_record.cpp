// Writes and reads the two lines of a lock file, "PID:" and "PROGRAM:".

#include "utils/lock_record.h"

#include <stdexcept>

#include "utils/path_text.h"
#include "utils/text.h"

namespace kzcef {
namespace {

constexpr std::string_view kProcessId = "PID:";
constexpr std::string_view kProgram = "PROGRAM:";

// std::stoi with the same texts in its errors under every standard library.
int ToInteger(const std::string& text) {
  try {
    return std::stoi(text);
  } catch (const std::invalid_argument&) {
    throw std::invalid_argument("invalid stoi argument");
  } catch (const std::out_of_range&) {
    throw std::out_of_range("stoi argument out of range");
  }
}

}  // namespace

std::string FormatLockRecord(std::uint32_t process_id, std::string_view program_path) {
  std::string text(kProcessId);
  text.append(std::to_string(process_id)).append("\n");
  text.append(kProgram).append(DoubleSeparators(program_path)).append("\n");
  return text;
}

LockRecord ParseLockRecord(std::string_view text) {
  LockRecord record;
  for (const std::string& line : SplitAt(text, '\n')) {
    if (line.starts_with(kProcessId)) {
      record.process_id = ToInteger(line.substr(kProcessId.size()));
    } else if (line.starts_with(kProgram)) {
      record.program = line.substr(kProgram.size());
    }
  }
  return record;
}

}  // namespace kzcef
