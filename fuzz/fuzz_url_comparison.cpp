// Fuzzes the comparison with the URL that the host gives back for a response.
#include <cstdint>
#include <string>

#include "handler/url_comparison.h"
#include "require.h"

using kzcef::IsSameUrl;
using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const std::string text(reinterpret_cast<const char*>(bytes), size);
  const size_t middle = text.size() / 2;
  const std::string first = text.substr(0, middle);
  const std::string second = text.substr(middle);
  Require(IsSameUrl(first, first), "a URL is the same as itself");
  Require(IsSameUrl(first, first + '/') || first.ends_with('/'), "one slash more does not matter");
  Require(!IsSameUrl(first, first + "//") || first.ends_with('/'), "two do");
  Require(IsSameUrl(first, second) == IsSameUrl(second, first), "the order does not matter");
  Require(!IsSameUrl(first, second) || first == second || first == second + '/' ||
              second == first + '/',
          "what is the same differs by a slash at most");
  return 0;
}
