#include "header_map.h"

#include <algorithm>
#include <string_view>

namespace cefedition {
namespace {

char16_t ToLower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

bool IsSameName(const CefString& a, const CefString& b) {
  return std::equal(a.c_str(), a.c_str() + a.length(), b.c_str(), b.c_str() + b.length(),
                    [](char16_t x, char16_t y) { return ToLower(x) == ToLower(y); });
}

}  // namespace

CefString FindHeader(const HeaderMap& headers, const CefString& name) {
  const auto found = std::find_if(headers.begin(), headers.end(), [&](const auto& header) {
    return IsSameName(header.first, name);
  });
  return found == headers.end() ? CefString() : found->second;
}

void SetHeader(HeaderMap* headers, const CefString& name, const CefString& value, bool overwrite) {
  const auto has_name = [&](const auto& header) { return IsSameName(header.first, name); };
  if (!overwrite && std::any_of(headers->begin(), headers->end(), has_name)) {
    return;
  }
  EraseHeader(headers, name);
  headers->emplace(name, value);
}

void EraseHeader(HeaderMap* headers, const CefString& name) {
  std::erase_if(*headers, [&](const auto& header) { return IsSameName(header.first, name); });
}

}  // namespace cefedition
