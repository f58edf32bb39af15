// The content of a lock file: which process claims a cache directory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kzcef {

struct LockRecord {
  // 0 when the file names no process.
  int process_id = 0;
  // The path of the process's executable with its separators doubled; empty when absent.
  std::string program;

  bool operator==(const LockRecord&) const = default;
};

// Returns the text of a lock file for a process and the path of its executable, which is written
// with its separators doubled.
std::string FormatLockRecord(std::uint32_t process_id, std::string_view program_path);

// Reads a lock file's text. Lines that name neither process nor program are ignored, and of two
// that name the same thing the later one counts. Throws std::invalid_argument for a process
// identifier without digits and std::out_of_range for one beyond the signed 32-bit range.
LockRecord ParseLockRecord(std::string_view text);

}  // namespace kzcef
