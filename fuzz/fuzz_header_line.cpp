// Fuzzes the reader of header lines, which come from the hub installation's library.
#include <algorithm>
#include <cstdint>
#include <string>

#include "require.h"
#include "utils/header_line.h"
#include "utils/text.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string line(reinterpret_cast<const char*>(bytes), size);
  const auto header = kzcef::ParseHeaderLine(line);
  Require(header.has_value() == (std::count(line.begin(), line.end(), ':') == 1),
          "a line with one colon is a header, and no other");
  if (!header)
    return 0;
  Require(
      header->name.find(':') == std::string::npos && header->value.find(':') == std::string::npos,
      "neither part holds the colon");
  Require(kzcef::Trim(header->name) == header->name && kzcef::Trim(header->value) == header->value,
          "both parts are trimmed");
  Require(kzcef::ParseHeaderLine(header->name + ":" + header->value) == header,
          "a header says the same when written plainly");
  return 0;
}
