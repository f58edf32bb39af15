// Converts texts between the host, which uses UTF-8, and Windows, which uses UTF-16.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <string>
#include <string_view>

namespace kzhost {

// What is not valid becomes U+FFFD.
std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view wide);

// Converts an automation text; a null one counts as empty.
std::string ToUtf8(const OLECHAR* text, UINT length);
inline std::string BstrToUtf8(BSTR text) {
  return ToUtf8(text, SysStringLen(text));
}

struct BstrFree {
  void operator()(OLECHAR* text) const { SysFreeString(text); }
};

// An automation text that its owner frees.
using Bstr = std::unique_ptr<OLECHAR, BstrFree>;
Bstr MakeBstr(const std::wstring& text);

// Returns "0x80004005 (Unspecified error)" and the like, for messages.
std::string DescribeResult(HRESULT result);

}  // namespace kzhost
