// Makes CEF's texts from those that the bridge is given.
#pragma once

#include <string>

#include "include/internal/cef_string.h"

namespace kzcef {

// Returns a copy of a null-terminated text; null counts as empty.
inline CefString ToCefString(const wchar_t* text) {
  return text ? CefString(std::wstring(text)) : CefString();
}

}  // namespace kzcef
