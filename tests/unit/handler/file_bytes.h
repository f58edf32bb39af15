// What a file holds.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace kzcef::testing {

// Empty for a file that is not there.
inline std::string BytesOf(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

}  // namespace kzcef::testing
