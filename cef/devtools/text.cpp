#include "devtools/text.h"

#include <windows.h>

namespace cefedition {

std::wstring Utf8ToWide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int wide_size = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<size_t>(wide_size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), wide_size);
  return wide;
}

std::string WideToUtf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int utf8_size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(utf8_size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), utf8_size, nullptr, nullptr);
  return utf8;
}

}  // namespace cefedition
