// Texts between automation and the library.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

namespace kzcef {

// A copy of a text that a caller passes and keeps; null counts as empty. Blanks and embedded nulls
// stay.
inline std::wstring TextOf(BSTR text) {
  return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

// A new BSTR for the caller to free; null when memory runs out.
inline BSTR NewBstr(const std::wstring& text) noexcept {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace kzcef
