// Writes a cookie's text straight into the BSTR that the host
// receives: a read may make thousands of them.

#include "bridge/cookie_text.h"

#include <algorithm>
#include <limits>
#include <new>
#include <string_view>

namespace kzcef {
namespace {

constexpr std::wstring_view kBeforeDomain = L"{\"domain\":\"";
constexpr std::wstring_view kBeforeName = L"\",\"name\":\"";
constexpr std::wstring_view kBeforeValue = L"\",\"value\":\"";
constexpr std::wstring_view kEnd = L"\"}";

OLECHAR* Put(OLECHAR* to, std::wstring_view text) {
  return std::ranges::copy(text, to).out;
}

OLECHAR* Put(OLECHAR* to, const cef_string_t& text) {
  return std::copy_n(text.str, text.length, to);
}

}  // namespace

UniqueBstr CookieText(const CefCookie& cookie) {
  const std::size_t length = kBeforeDomain.size() + cookie.domain.length + kBeforeName.size() +
                             cookie.name.length + kBeforeValue.size() + cookie.value.length +
                             kEnd.size();
  // Filled in place: the text is allocated once, in the form in which it is handed out.
  UniqueBstr text(length <= std::numeric_limits<UINT>::max()
                      ? SysAllocStringLen(nullptr, static_cast<UINT>(length))
                      : nullptr);
  if (!text) {
    throw std::bad_alloc();
  }
  OLECHAR* at = text.get();
  at = Put(Put(at, kBeforeDomain), cookie.domain);
  at = Put(Put(at, kBeforeName), cookie.name);
  at = Put(Put(at, kBeforeValue), cookie.value);
  Put(at, kEnd);
  return text;
}

}  // namespace kzcef
