// URLs put together from parts that somebody else chose.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "require.h"
#include "url.h"

using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  constexpr size_t kLongestPart = 64;
  cefedition::UrlParts parts;
  parts.scheme = data.ConsumeBool() ? "https" : data.ConsumeRandomLengthString(kLongestPart);
  for (std::string* part : {&parts.username, &parts.password, &parts.host, &parts.port, &parts.path,
                            &parts.query, &parts.fragment})
    *part = data.ConsumeRandomLengthString(kLongestPart);
  const auto url = cefedition::MakeUrl(parts);
  if (!url)
    return 0;
  const auto again = cefedition::ParseUrl(url->spec);
  Require(again && again->spec == url->spec, "what was put together is a settled URL");
  return 0;
}
