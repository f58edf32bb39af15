// Base64 of data that the browser and the host send.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>
#include <vector>

#include "base64.h"
#include "require.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::vector<uint8_t> data(bytes, bytes + size);
  const std::string encoded = cefedition::Base64Encode(data);
  Require(encoded.size() == (size + 2) / 3 * 4, "four characters for three bytes");
  Require(cefedition::Base64Decode(encoded) == data, "what was encoded is decoded");

  const std::string text(reinterpret_cast<const char*>(bytes), size);
  if (const auto decoded = cefedition::Base64Decode(text)) {
    Require(text.size() % 4 == 0, "whole groups only");
    Require(cefedition::Base64Encode(*decoded).size() == text.size(),
            "a text stands for as many bytes as one of its length");
  }
  return 0;
}
