// Moves cookie texts into an array for automation. The texts
// themselves become its elements, so none is copied.

#include "bridge/cookie_list.h"

#include <algorithm>
#include <new>

#include "bridge/cookie_language.h"

namespace kzcef {

VARIANT CookieList(std::vector<UniqueBstr> texts) {
  VARIANT list = NoCookies();
  if (texts.empty()) {
    return list;
  }
  for (const UniqueBstr& text : texts) {
    CaptureLanguageOf(ViewOf(text.get()));
  }
  SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  if (!array) {
    throw std::bad_alloc();
  }
  // A new array is not locked, and its elements are null: they become the texts themselves.
  std::ranges::transform(texts, static_cast<BSTR*>(array->pvData),
                         [](UniqueBstr& text) { return text.release(); });
  list.vt = VT_ARRAY | VT_BSTR;
  list.parray = array;
  return list;
}

VARIANT NoCookies() noexcept {
  VARIANT list;
  VariantInit(&list);
  return list;
}

}  // namespace kzcef
