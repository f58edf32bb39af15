// Texts that must not stay in memory: user names and passwords.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

#include "include/internal/cef_string.h"

namespace kzcef {

// Overwrites `text`, which may be null. Automation caches the memory of freed texts as it is.
inline void WipeText(BSTR text) noexcept {
  if (text) {
    SecureZeroMemory(text, SysStringByteLen(text));
  }
}

// Returns `text` for CEF without copying it; the result must not outlive `text`.
inline CefString UncopiedCefString(std::wstring_view text) {
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  return CefString(reinterpret_cast<const char16_t*>(text.data()), text.size(), /*copy=*/false);
}

}  // namespace kzcef
