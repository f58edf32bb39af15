// Writes each message with its number.

#include "utils/file_messages.h"

namespace kzcef {
namespace {

std::string Message(int number, std::string_view text) {
  std::string message = "kzcefwrapperutils.cpp:";
  return message.append(std::to_string(number)).append(text);
}

}  // namespace

std::string CreateFailedMessage(std::string_view path) {
  return Message(512, " Failed to create file: ").append(path);
}

std::string WriteFailedMessage(std::string_view path) {
  return Message(530, " Failed to write to file: ").append(path);
}

std::string ShortWriteMessage(std::uint64_t expected_bytes, std::uint64_t written_bytes) {
  // The text really has two blanks before "actually".
  return Message(536, " Expected to write ")
      .append(std::to_string(expected_bytes))
      .append(" bytes,  actually wrote ")
      .append(std::to_string(written_bytes))
      .append(" bytes");
}

}  // namespace kzcef
