// The functions behind CefString. A text of CEF's names the function that frees it, so texts made
// here and texts made by the engine meet in one type; that these need no engine keeps every text in
// place when there is none. Windows converts between the encodings.

#include <windows.h>

#include <algorithm>
#include <climits>
#include <new>
#include <string_view>

#include "include/internal/cef_string_types.h"

namespace {

template <typename Char>
void CEF_CALLBACK FreeText(Char* text) {
  delete[] text;
}

template <typename String>
void Clear(String* string) {
  if (string->dtor && string->str) {
    string->dtor(string->str);
  }
  *string = {};
}

// Takes over `text`, made by new[].
template <typename Char, typename String>
int Own(Char* text, size_t length, String* output) {
  Clear(output);
  *output = {text, length, &FreeText<Char>};
  return 1;
}

// Sets `output` last: `text` may be part of what it holds.
template <typename Char, typename String>
int Set(const Char* text, size_t length, String* output, bool copy) {
  if (!copy) {
    Clear(output);
    *output = {const_cast<Char*>(text), length, nullptr};
    return 1;
  }
  if (!text || length == 0) {
    Clear(output);
    return 1;
  }
  Char* const buffer = new (std::nothrow) Char[length + 1];
  if (!buffer) {
    return 0;
  }
  std::copy_n(text, length, buffer);
  buffer[length] = 0;
  return Own(buffer, length, output);
}

template <typename String>
int Compare(const String* a, const String* b) {
  using Char = std::remove_pointer_t<decltype(a->str)>;
  return std::basic_string_view<Char>(a->str, a->length)
      .compare(std::basic_string_view<Char>(b->str, b->length));
}

const wchar_t* AsWide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}

const char16_t* AsUtf16(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}

// Fills `output` by `convert(target, capacity)`, a conversion of Windows' whose result is a length,
// 0 when it fails. What is longer than such a conversion takes comes out empty.
template <typename Char, typename String, typename Convert>
int Converted(size_t source_length, String* output, Convert convert) {
  if (source_length == 0) {
    Clear(output);
    return 1;
  }
  const int length = source_length <= INT_MAX ? convert(nullptr, 0) : 0;
  Char* const buffer =
      length > 0 ? new (std::nothrow) Char[static_cast<size_t>(length) + 1] : nullptr;
  if (!buffer) {
    Clear(output);
    return 0;
  }
  buffer[convert(buffer, length)] = 0;
  return Own(buffer, static_cast<size_t>(length), output);
}

// Whether all of a text was valid, once the conversion, which replaces what is not, has been made.
bool IsUtf8(const char* text, size_t length) {
  return length == 0 || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text,
                                            static_cast<int>(length), nullptr, 0) > 0;
}
bool IsUtf16(const wchar_t* text, size_t length) {
  return length == 0 ||
         WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text, static_cast<int>(length), nullptr,
                             0, nullptr, nullptr) > 0;
}

template <typename String>
int FromUtf8(const char* text, size_t length, String* output) {
  using Char = std::remove_pointer_t<decltype(output->str)>;
  const size_t given = text ? length : 0;
  return Converted<Char>(given, output,
                         [&](Char* target, int capacity) {
                           return MultiByteToWideChar(CP_UTF8, 0, text, static_cast<int>(given),
                                                      reinterpret_cast<wchar_t*>(target), capacity);
                         }) &&
         IsUtf8(text, given);
}

int ToUtf8(const wchar_t* text, size_t length, cef_string_utf8_t* output) {
  const size_t given = text ? length : 0;
  return Converted<char>(given, output,
                         [&](char* target, int capacity) {
                           return WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(given),
                                                      target, capacity, nullptr, nullptr);
                         }) &&
         IsUtf16(text, given);
}

template <typename String>
int FromAscii(const char* text, size_t length, String* output) {
  using Char = std::remove_pointer_t<decltype(output->str)>;
  Char* const buffer = text ? new (std::nothrow) Char[length + 1] : nullptr;
  if (!buffer) {
    Clear(output);
    return !text;
  }
  *std::copy_n(text, length, buffer) = 0;
  return Own(buffer, length, output);
}

}  // namespace

int cef_string_wide_set(const wchar_t* src, size_t src_len, cef_string_wide_t* output, int copy) {
  return Set(src, src_len, output, copy != 0);
}

int cef_string_utf8_set(const char* src, size_t src_len, cef_string_utf8_t* output, int copy) {
  return Set(src, src_len, output, copy != 0);
}

int cef_string_utf16_set(const char16_t* src,
                         size_t src_len,
                         cef_string_utf16_t* output,
                         int copy) {
  return Set(src, src_len, output, copy != 0);
}

void cef_string_wide_clear(cef_string_wide_t* str) {
  Clear(str);
}

void cef_string_utf8_clear(cef_string_utf8_t* str) {
  Clear(str);
}

void cef_string_utf16_clear(cef_string_utf16_t* str) {
  Clear(str);
}

int cef_string_wide_cmp(const cef_string_wide_t* str1, const cef_string_wide_t* str2) {
  return Compare(str1, str2);
}

int cef_string_utf8_cmp(const cef_string_utf8_t* str1, const cef_string_utf8_t* str2) {
  return Compare(str1, str2);
}

int cef_string_utf16_cmp(const cef_string_utf16_t* str1, const cef_string_utf16_t* str2) {
  return Compare(str1, str2);
}

int cef_string_wide_to_utf8(const wchar_t* src, size_t src_len, cef_string_utf8_t* output) {
  return ToUtf8(src, src_len, output);
}

int cef_string_utf8_to_wide(const char* src, size_t src_len, cef_string_wide_t* output) {
  return FromUtf8(src, src_len, output);
}

int cef_string_wide_to_utf16(const wchar_t* src, size_t src_len, cef_string_utf16_t* output) {
  return Set(AsUtf16(src), src_len, output, true);
}

int cef_string_utf16_to_wide(const char16_t* src, size_t src_len, cef_string_wide_t* output) {
  return Set(AsWide(src), src_len, output, true);
}

int cef_string_utf8_to_utf16(const char* src, size_t src_len, cef_string_utf16_t* output) {
  return FromUtf8(src, src_len, output);
}

int cef_string_utf16_to_utf8(const char16_t* src, size_t src_len, cef_string_utf8_t* output) {
  return ToUtf8(AsWide(src), src_len, output);
}

int cef_string_ascii_to_wide(const char* src, size_t src_len, cef_string_wide_t* output) {
  return FromAscii(src, src_len, output);
}

int cef_string_ascii_to_utf16(const char* src, size_t src_len, cef_string_utf16_t* output) {
  return FromAscii(src, src_len, output);
}
