// What a page or a server wishes a file to be called.
#include <cstdint>
#include <string>
#include <string_view>

#include "file_name.h"
#include "require.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string wished(reinterpret_cast<const char*>(bytes), size);
  const std::string name = cefedition::SafeFileName(wished);

  Require(!name.empty() && name.size() <= cefedition::kMaxFileNameBytes, "the length is bounded");
  Require(name.find_first_of("<>:\"/\\|?*\x7F") == std::string::npos, "Windows takes every sign");
  for (const char c : name) {
    Require(static_cast<unsigned char>(c) >= 0x20, "no control characters are left");
  }
  Require(name.front() != '.' && name.front() != ' ', "the beginning is visible");
  Require(name.back() != '.' && name.back() != ' ', "Windows drops nothing at the end");
  Require(cefedition::SafeFileName(name) == name, "a safe name stays");
  return 0;
}
