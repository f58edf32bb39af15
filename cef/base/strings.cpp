#include <windows.h>

#include <algorithm>
#include <new>
#include <string>
#include <string_view>

#include "include/internal/cef_string_types.h"
#include "portable/utf.h"

// The C functions behind CefString. On Windows wide texts are UTF-16, so the wide functions share
// the code of the UTF-16 ones.

namespace {

template <typename Char>
void FreeText(Char* text) {
  delete[] text;
}

template <typename String>
void Clear(String* string) {
  if (string->dtor && string->str) {
    string->dtor(string->str);
  }
  *string = {};
}

// Sets |output| last: |text| may be part of what it holds.
template <typename Char, typename String>
int Set(const Char* text, size_t length, String* output, bool copy) {
  String result = {};
  if (copy && text && length > 0) {
    Char* const buffer = new (std::nothrow) Char[length + 1];
    if (!buffer) {
      return 0;
    }
    std::copy_n(text, length, buffer);
    buffer[length] = 0;
    result = {buffer, length, &FreeText<Char>};
  } else if (!copy) {
    result = {const_cast<Char*>(text), length, nullptr};
  }
  Clear(output);
  *output = result;
  return 1;
}

template <typename String>
int Compare(const String* a, const String* b) {
  using Char = std::remove_pointer_t<decltype(a->str)>;
  return std::basic_string_view<Char>(a->str, a->length)
      .compare(std::basic_string_view<Char>(b->str, b->length));
}

template <typename String>
String* Allocate() {
  return new (std::nothrow) String{};
}

template <typename String>
void FreeUserText(String* string) {
  if (string) {
    Clear(string);
    delete string;
  }
}

std::string_view View(const char* text, size_t length) {
  return text ? std::string_view(text, length) : std::string_view();
}

std::u16string_view View(const char16_t* text, size_t length) {
  return text ? std::u16string_view(text, length) : std::u16string_view();
}

const char16_t* AsUtf16(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}

const wchar_t* AsWide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}

template <typename String>
int FromUtf8(const char* text, size_t length, String* output) {
  using Char = std::remove_pointer_t<decltype(output->str)>;
  bool valid = true;
  const std::u16string converted = cefedition::Utf8ToUtf16(View(text, length), &valid);
  return Set(reinterpret_cast<const Char*>(converted.data()), converted.size(), output, true) &&
         valid;
}

int ToUtf8(const char16_t* text, size_t length, cef_string_utf8_t* output) {
  bool valid = true;
  const std::string converted = cefedition::Utf16ToUtf8(View(text, length), &valid);
  return Set(converted.data(), converted.size(), output, true) && valid;
}

template <typename String>
int FromAscii(const char* text, size_t length, String* output) {
  using Char = std::remove_pointer_t<decltype(output->str)>;
  const std::string_view view = View(text, length);
  const std::basic_string<Char> widened(view.begin(), view.end());
  return Set(widened.data(), widened.size(), output, true);
}

int MapCase(DWORD how, const char16_t* text, size_t length, cef_string_utf16_t* output) {
  std::u16string mapped(View(text, length));
  // Letter case changes no lengths here, so the text can be mapped in place, piece by piece.
  constexpr size_t kPiece = 1 << 20;
  for (size_t pos = 0; pos < mapped.size(); pos += kPiece) {
    const int size = static_cast<int>(std::min(kPiece, mapped.size() - pos));
    const std::wstring piece(AsWide(mapped.data()) + pos, static_cast<size_t>(size));
    if (LCMapStringEx(LOCALE_NAME_INVARIANT, how, piece.data(), size,
                      reinterpret_cast<wchar_t*>(mapped.data()) + pos, size, nullptr, nullptr,
                      0) != size) {
      return 0;
    }
  }
  return Set(mapped.data(), mapped.size(), output, true);
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
  return ToUtf8(AsUtf16(src), src_len, output);
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
  return ToUtf8(src, src_len, output);
}

int cef_string_ascii_to_wide(const char* src, size_t src_len, cef_string_wide_t* output) {
  return FromAscii(src, src_len, output);
}

int cef_string_ascii_to_utf16(const char* src, size_t src_len, cef_string_utf16_t* output) {
  return FromAscii(src, src_len, output);
}

cef_string_userfree_wide_t cef_string_userfree_wide_alloc() {
  return Allocate<cef_string_wide_t>();
}

cef_string_userfree_utf8_t cef_string_userfree_utf8_alloc() {
  return Allocate<cef_string_utf8_t>();
}

cef_string_userfree_utf16_t cef_string_userfree_utf16_alloc() {
  return Allocate<cef_string_utf16_t>();
}

void cef_string_userfree_wide_free(cef_string_userfree_wide_t str) {
  FreeUserText(str);
}

void cef_string_userfree_utf8_free(cef_string_userfree_utf8_t str) {
  FreeUserText(str);
}

void cef_string_userfree_utf16_free(cef_string_userfree_utf16_t str) {
  FreeUserText(str);
}

int cef_string_utf16_to_lower(const char16_t* src, size_t src_len, cef_string_utf16_t* output) {
  return MapCase(LCMAP_LOWERCASE, src, src_len, output);
}

int cef_string_utf16_to_upper(const char16_t* src, size_t src_len, cef_string_utf16_t* output) {
  return MapCase(LCMAP_UPPERCASE, src, src_len, output);
}
