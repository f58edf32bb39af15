// Cookies and the texts that hosts get of them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "com/text.h"
#include "include/cef_cookie.h"

namespace kzcef::testing {

inline CefCookie MakeCookie(const std::wstring& name,
                            const std::wstring& value,
                            const std::wstring& domain = L"a.test") {
  CefCookie cookie;
  CefString(&cookie.name) = name;
  CefString(&cookie.value) = value;
  CefString(&cookie.domain) = domain;
  return cookie;
}

inline std::wstring TextOfCookie(const std::wstring& name,
                                 const std::wstring& value,
                                 const std::wstring& domain = L"a.test") {
  return L"{\"domain\":\"" + domain + L"\",\"name\":\"" + name + L"\",\"value\":\"" + value +
         L"\"}";
}

inline std::vector<std::wstring> Texts(const std::vector<UniqueBstr>& texts) {
  std::vector<std::wstring> copies;
  for (const UniqueBstr& text : texts) {
    copies.emplace_back(ViewOf(text.get()));
  }
  return copies;
}

// The texts of a cookie list, which is freed. Anything but an array as hosts expect it fails.
inline std::vector<std::wstring> TakeTexts(VARIANT list) {
  std::vector<std::wstring> texts;
  if (list.vt == VT_EMPTY) {
    return texts;
  }
  EXPECT_EQ(list.vt, VT_ARRAY | VT_BSTR);
  VARTYPE element = VT_EMPTY;
  LONG first = -1;
  LONG last = -1;
  EXPECT_EQ(SafeArrayGetDim(list.parray), 1u);
  EXPECT_EQ(SafeArrayGetVartype(list.parray, &element), S_OK);
  EXPECT_EQ(element, VT_BSTR);
  EXPECT_EQ(SafeArrayGetLBound(list.parray, 1, &first), S_OK);
  EXPECT_EQ(first, 0);
  EXPECT_EQ(SafeArrayGetUBound(list.parray, 1, &last), S_OK);
  for (LONG at = first; at <= last; ++at) {
    BSTR text = nullptr;
    EXPECT_EQ(SafeArrayGetElement(list.parray, &at, &text), S_OK);
    texts.push_back(TextOf(text));
    SysFreeString(text);
  }
  // Fails when somebody has left the array locked.
  EXPECT_EQ(VariantClear(&list), S_OK);
  return texts;
}

}  // namespace kzcef::testing
