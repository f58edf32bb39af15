// Percent-encoding, there and back.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#include "percent.h"
#include "require.h"
#include "utf.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const bool use_plus = data.ConsumeBool();
  const cefedition::PercentDecodeRule any{.spaces = data.ConsumeBool(),
                                          .path_separators = data.ConsumeBool(),
                                          .special = data.ConsumeBool(),
                                          .plus_to_space = data.ConsumeBool()};
  const std::string text = data.ConsumeRemainingBytesAsString();

  const std::string encoded = cefedition::PercentEncode(text, use_plus);
  Require(std::all_of(encoded.begin(), encoded.end(),
                      [](unsigned char c) {
                        return std::isalnum(c) ||
                               std::string_view("-_.!~*'()%+").find(static_cast<char>(c)) !=
                                   std::string_view::npos;
                      }),
          "only harmless characters come out");

  bool valid = false;
  cefedition::Utf8ToUtf16(text, &valid);
  const bool controls =
      std::any_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; });
  if (valid && !controls) {
    const cefedition::PercentDecodeRule all{
        .spaces = true, .path_separators = true, .special = true, .plus_to_space = use_plus};
    Require(cefedition::PercentDecode(encoded, all) == text, "what was encoded is decoded");
  }

  const std::string decoded = cefedition::PercentDecode(text, any);
  Require(decoded.size() <= text.size(), "decoding makes nothing longer");
  if (text.find('%') == std::string::npos && !any.plus_to_space)
    Require(decoded == text, "what holds no escape stays");
  return 0;
}
