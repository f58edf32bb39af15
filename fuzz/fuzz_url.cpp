// URLs come from pages, from hosts and from users.
#include <fuzzer/FuzzedDataProvider.h>

#include <optional>
#include <string>

#include "host.h"
#include "require.h"
#include "url.h"

using cefedition::Url;
using kzfuzz::Require;

namespace {

bool SameParts(const Url& a, const Url& b) {
  return a.spec == b.spec && a.scheme == b.scheme && a.username == b.username &&
         a.password == b.password && a.host == b.host && a.port == b.port && a.path == b.path &&
         a.query == b.query && a.fragment == b.fragment && a.is_standard == b.is_standard &&
         a.has_query == b.has_query && a.has_fragment == b.has_fragment;
}

void RequireSettled(const Url& url) {
  const std::optional<Url> again = cefedition::ParseUrl(url.spec);
  Require(again.has_value(), "a URL as written is a URL");
  Require(SameParts(*again, url), "a URL as written is written the same again");
  for (const char c : url.spec)
    Require(static_cast<unsigned char>(c) > 0x1F && c != 0x7F, "no controls are in a URL");
  const std::string origin = cefedition::OriginOf(url);
  Require(origin.empty() == !url.is_standard || url.host.empty(), "standard URLs have an origin");
  const std::string referrer = cefedition::AsReferrer(url);
  Require(referrer.find('#') == std::string::npos, "a referrer tells no fragment");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const std::string base_text = data.ConsumeRandomLengthString();
  const std::string text = data.ConsumeRemainingBytesAsString();

  if (const auto url = cefedition::ParseUrl(text))
    RequireSettled(*url);
  const auto base = cefedition::ParseUrl(base_text);
  if (base) {
    RequireSettled(*base);
    if (const auto resolved = cefedition::ResolveUrl(*base, text))
      RequireSettled(*resolved);
  }
  if (const auto host = cefedition::CanonicalHost(text))
    Require(cefedition::CanonicalHost(*host) == host, "a host as written stays so");
  return 0;
}
