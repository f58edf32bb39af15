// JSON of hosts and pages: which texts are accepted, and that they mean what they say.
#include <fuzzer/FuzzedDataProvider.h>

#include <nlohmann/json.hpp>
#include <string>

#include "json_text.h"
#include "require.h"
#include "utf.h"

using kzfuzz::Require;
using nlohmann::json;

namespace {

size_t NestingOf(const std::string& text) {
  size_t depth = 0;
  size_t deepest = 0;
  for (const char c : text) {
    if (c == '[' || c == '{')
      deepest = std::max(deepest, ++depth);
    if ((c == ']' || c == '}') && depth > 0)
      --depth;
  }
  return deepest;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string text(reinterpret_cast<const char*>(bytes), size);

  std::string error;
  const auto strict = cefedition::ParseJson(text, false, &error);
  Require(strict.has_value() == error.empty(), "an error is told when there is one");
  const json reference = json::parse(text, nullptr, false);
  if (strict) {
    Require(!reference.is_discarded() && *strict == reference, "as the JSON library reads it");
    Require(cefedition::ParseJson(strict->dump(), false) == *strict, "what was read is read again");
    Require(cefedition::ParseJson(text, true) == *strict,
            "trailing commas allowed change nothing where there are none");
  } else if (NestingOf(text) < cefedition::kMaxJsonDepth) {
    Require(reference.is_discarded(), "nothing is refused but JSON nested too deep");
  }

  const auto quoted = cefedition::ParseJson(cefedition::QuoteJson(text), false);
  Require(quoted && quoted->is_string(), "a quoted text is a JSON text");
  Require(cefedition::Utf8ToUtf16(quoted->get<std::string>()) == cefedition::Utf8ToUtf16(text),
          "a quoted text is the text");
  return 0;
}
