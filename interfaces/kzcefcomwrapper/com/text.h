// Converts texts between automation and the library.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <string>
#include <string_view>

namespace kzcef {

// Returns a copy of a text that belongs to the caller; null counts as empty. Blanks and embedded
// nulls stay.
inline std::wstring TextOf(BSTR text) {
  return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

// Returns a view of such a text, valid for as long as the text lives.
inline std::wstring_view ViewOf(BSTR text) noexcept {
  return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}

// Returns a new BSTR for the caller to free; null when memory runs out.
inline BSTR NewBstr(const std::wstring& text) noexcept {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

// A BSTR that is freed at the end of its scope.
struct BstrFree {
  void operator()(BSTR text) const noexcept { SysFreeString(text); }
};
using UniqueBstr = std::unique_ptr<OLECHAR, BstrFree>;

}  // namespace kzcef
