// Converts texts with the system's functions, and describes HRESULTs with the system's messages.

#include "wide_text.h"

#include <array>
#include <cstdio>
#include <new>

namespace kzhost {

std::wstring ToWide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
  std::wstring wide(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), length);
  return wide;
}

std::string ToUtf8(std::wstring_view wide) {
  return ToUtf8(wide.data(), static_cast<UINT>(wide.size()));
}

std::string ToUtf8(const OLECHAR* text, UINT length) {
  const int size = static_cast<int>(length);
  const int needed = WideCharToMultiByte(CP_UTF8, 0, text, size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, size, utf8.data(), needed, nullptr, nullptr);
  return utf8;
}

Bstr MakeBstr(const std::wstring& text) {
  Bstr copy(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
  if (!copy) {
    throw std::bad_alloc();
  }
  return copy;
}

std::string DescribeResult(HRESULT result) {
  std::array<char, 16> number{};
  std::snprintf(number.data(), number.size(), "0x%08lX", static_cast<unsigned long>(result));
  std::array<wchar_t, 256> text{};
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(result), 0, text.data(), text.size(), nullptr);
  while (length > 0 && (text[length - 1] < L' ' || text[length - 1] == L'.')) {
    --length;
  }
  if (length == 0) {
    return number.data();
  }
  return std::string(number.data()) + " (" + ToUtf8(text.data(), length) + ")";
}

}  // namespace kzhost
