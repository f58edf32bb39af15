// Compares URLs as texts: nothing is parsed, decoded or folded to lower case.

#include "handler/url_comparison.h"

namespace kzcef {
namespace {

std::string_view WithoutSlash(std::string_view url) {
  if (url.ends_with('/')) {
    url.remove_suffix(1);
  }
  return url;
}

}  // namespace

bool IsSameUrl(std::string_view first, std::string_view second) {
  return WithoutSlash(first) == WithoutSlash(second);
}

}  // namespace kzcef
