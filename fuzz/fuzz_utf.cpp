// Texts between UTF-8 and UTF-16, well-formed or not.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>
#include <string>

#include "require.h"
#include "utf.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string narrow(reinterpret_cast<const char*>(bytes), size);
  bool valid = false;
  const std::u16string widened = cefedition::Utf8ToUtf16(narrow, &valid);
  bool still_valid = false;
  const std::string back = cefedition::Utf16ToUtf8(widened, &still_valid);
  Require(still_valid, "what comes out is well-formed");
  Require((back == narrow) == valid, "exactly a well-formed text comes back as it was");

  std::u16string wide(size / 2, u'\0');
  std::memcpy(wide.data(), bytes, wide.size() * 2);
  const std::string narrowed = cefedition::Utf16ToUtf8(wide, &valid);
  const std::u16string wide_back = cefedition::Utf8ToUtf16(narrowed, &still_valid);
  Require(still_valid, "what comes out is well-formed");
  Require((wide_back == wide) == valid, "exactly a well-formed text comes back as it was");
  Require(cefedition::ToWellFormed(wide) == wide_back, "repaired as by way of UTF-8");
  return 0;
}
