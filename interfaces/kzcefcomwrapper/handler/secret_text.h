// Texts that nobody is to find in memory later: user names and passwords.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

#include "include/internal/cef_string.h"

namespace kzcef {

// Overwrites `text`, which may be null. Automation keeps the memory of freed texts for the next
// ones, as it is.
inline void WipeText(BSTR text) noexcept {
  if (text) {
    SecureZeroMemory(text, SysStringByteLen(text));
  }
}

// `text` as CEF takes it, without a copy of its own: it must not outlive the text.
inline CefString UncopiedCefString(std::wstring_view text) {
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  return CefString(reinterpret_cast<const char16_t*>(text.data()), text.size(), /*copy=*/false);
}

}  // namespace kzcef
