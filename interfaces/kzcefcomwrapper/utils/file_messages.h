// The messages for the standard error stream when a new file cannot be written. The numbers in them
// are fixed, because tools that read the messages rely on them; they are no longer line numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kzcef {

std::string CreateFailedMessage(std::string_view path);
std::string WriteFailedMessage(std::string_view path);
std::string ShortWriteMessage(std::uint64_t expected_bytes, std::uint64_t written_bytes);

}  // namespace kzcef
