// include/internal/cef_string_wrappers.h of CEF 123, as far as it is used
// here: texts as C++ classes over the C structures.
#pragma once

#include <cstring>
#include <string>
#include <utility>

#include "include/internal/cef_string_types.h"

// One traits class for each character type: the C functions under the same names.

struct CefStringTraitsWide {
  typedef wchar_t char_type;
  typedef cef_string_wide_t struct_type;

  static void clear(struct_type* s) { cef_string_wide_clear(s); }
  static int set(const char_type* src, size_t src_size, struct_type* output, int copy) {
    return cef_string_wide_set(src, src_size, output, copy);
  }
  static int compare(const struct_type* s1, const struct_type* s2) {
    return cef_string_wide_cmp(s1, s2);
  }

  static bool from_ascii(const char* str, size_t len, struct_type* s) {
    return cef_string_ascii_to_wide(str, len, s) != 0;
  }
  static bool from_string(const char* data, size_t length, struct_type* s) {
    return cef_string_utf8_to_wide(data, length, s) != 0;
  }
  static bool from_wstring(const wchar_t* data, size_t length, struct_type* s) {
    return cef_string_wide_set(data, length, s, true) != 0;
  }
  static bool from_string16(const char16_t* data, size_t length, struct_type* s) {
    return cef_string_utf16_to_wide(data, length, s) != 0;
  }

  static void to_utf8(const struct_type* s, cef_string_utf8_t* output) {
    cef_string_wide_to_utf8(s->str, s->length, output);
  }
  static void to_wide(const struct_type* s, cef_string_wide_t* output) {
    cef_string_wide_set(s->str, s->length, output, false);
  }
  static void to_utf16(const struct_type* s, cef_string_utf16_t* output) {
    cef_string_wide_to_utf16(s->str, s->length, output);
  }
};

struct CefStringTraitsUTF8 {
  typedef char char_type;
  typedef cef_string_utf8_t struct_type;

  static void clear(struct_type* s) { cef_string_utf8_clear(s); }
  static int set(const char_type* src, size_t src_size, struct_type* output, int copy) {
    return cef_string_utf8_set(src, src_size, output, copy);
  }
  static int compare(const struct_type* s1, const struct_type* s2) {
    return cef_string_utf8_cmp(s1, s2);
  }

  static bool from_ascii(const char* str, size_t len, struct_type* s) {
    return cef_string_utf8_copy(str, len, s) != 0;
  }
  static bool from_string(const char* data, size_t length, struct_type* s) {
    return cef_string_utf8_copy(data, length, s) != 0;
  }
  static bool from_wstring(const wchar_t* data, size_t length, struct_type* s) {
    return cef_string_wide_to_utf8(data, length, s) != 0;
  }
  static bool from_string16(const char16_t* data, size_t length, struct_type* s) {
    return cef_string_utf16_to_utf8(data, length, s) != 0;
  }

  static void to_utf8(const struct_type* s, cef_string_utf8_t* output) {
    cef_string_utf8_set(s->str, s->length, output, false);
  }
  static void to_wide(const struct_type* s, cef_string_wide_t* output) {
    cef_string_utf8_to_wide(s->str, s->length, output);
  }
  static void to_utf16(const struct_type* s, cef_string_utf16_t* output) {
    cef_string_utf8_to_utf16(s->str, s->length, output);
  }
};

struct CefStringTraitsUTF16 {
  typedef char16_t char_type;
  typedef cef_string_utf16_t struct_type;

  static void clear(struct_type* s) { cef_string_utf16_clear(s); }
  static int set(const char_type* src, size_t src_size, struct_type* output, int copy) {
    return cef_string_utf16_set(src, src_size, output, copy);
  }
  static int compare(const struct_type* s1, const struct_type* s2) {
    return cef_string_utf16_cmp(s1, s2);
  }

  static bool from_ascii(const char* str, size_t len, struct_type* s) {
    return cef_string_ascii_to_utf16(str, len, s) != 0;
  }
  static bool from_string(const char* data, size_t length, struct_type* s) {
    return cef_string_utf8_to_utf16(data, length, s) != 0;
  }
  static bool from_wstring(const wchar_t* data, size_t length, struct_type* s) {
    return cef_string_wide_to_utf16(data, length, s) != 0;
  }
  static bool from_string16(const char16_t* data, size_t length, struct_type* s) {
    return cef_string_utf16_set(data, length, s, true) != 0;
  }

  static void to_utf8(const struct_type* s, cef_string_utf8_t* output) {
    cef_string_utf16_to_utf8(s->str, s->length, output);
  }
  static void to_wide(const struct_type* s, cef_string_wide_t* output) {
    cef_string_utf16_to_wide(s->str, s->length, output);
  }
  static void to_utf16(const struct_type* s, cef_string_utf16_t* output) {
    cef_string_utf16_set(s->str, s->length, output, false);
  }
};

// A text. It owns its characters, or refers to somebody else's structure (Attach), which must then
// outlive it. What is read as UTF-8 or UTF-16 may be invalid; what comes out is valid.
template <class traits>
class CefStringBase final {
 public:
  typedef typename traits::char_type char_type;
  typedef typename traits::struct_type struct_type;

  CefStringBase() = default;
  CefStringBase(const CefStringBase& str) { FromString(str.c_str(), str.length(), true); }
  CefStringBase(const std::string& src) { FromString(src); }
  CefStringBase(const char* src, size_t length = 0) { FromString(src, length); }
  CefStringBase(const std::wstring& src) { FromWString(src); }
  CefStringBase(const wchar_t* src, size_t length = 0) { FromWString(src, length); }
  CefStringBase(const std::u16string& src) { FromString16(src); }
  CefStringBase(const char16_t* src, size_t length = 0) { FromString16(src, length); }
  CefStringBase(const char_type* src, size_t src_len, bool copy) { FromString(src, src_len, copy); }
  // Refers to |src| without owning it.
  CefStringBase(const struct_type* src) {
    if (src) {
      Attach(const_cast<struct_type*>(src), false);
    }
  }
  ~CefStringBase() { ClearAndFree(); }

  // Returns null when nothing was ever set.
  const char_type* c_str() const { return string_ ? string_->str : nullptr; }
  size_t length() const { return string_ ? string_->length : 0; }
  size_t size() const { return length(); }
  bool empty() const { return length() == 0; }

  int compare(const CefStringBase& str) const {
    if (empty() || str.empty()) {
      return static_cast<int>(!empty()) - static_cast<int>(!str.empty());
    }
    return traits::compare(string_, str.string_);
  }

  void clear() {
    if (string_) {
      traits::clear(string_);
    }
  }

  void swap(CefStringBase& str) {
    std::swap(string_, str.string_);
    std::swap(owner_, str.owner_);
  }

  bool IsOwner() const { return owner_; }
  const struct_type* GetStruct() const { return string_; }
  struct_type* GetWritableStruct() {
    AllocIfNeeded();
    return string_;
  }

  // Frees what is owned and lets go of what is not.
  void ClearAndFree() {
    if (owner_) {
      clear();
      delete string_;
    }
    Detach();
  }

  // Takes |str|; if |owner|, it was made with new and is deleted here.
  void Attach(struct_type* str, bool owner) {
    ClearAndFree();
    string_ = str;
    owner_ = owner;
  }

  void Detach() {
    string_ = nullptr;
    owner_ = false;
  }

  // All From... functions take the text up to its terminator where the length is 0.
  bool FromString(const char_type* src, size_t src_len, bool copy) {
    return src && src_len > 0
               ? Fill([&](struct_type* s) { return traits::set(src, src_len, s, copy) != 0; })
               : Empty();
  }
  bool FromASCII(const char* str) {
    const size_t length = LengthOf(str, 0);
    return length ? Fill([&](struct_type* s) { return traits::from_ascii(str, length, s); })
                  : Empty();
  }

  bool FromString(const std::string& str) { return FromUtf8(str.data(), str.length()); }
  bool FromString(const char* data, size_t length = 0) {
    return FromUtf8(data, LengthOf(data, length));
  }
  bool FromWString(const std::wstring& str) { return FromWide(str.data(), str.length()); }
  bool FromWString(const wchar_t* data, size_t length = 0) {
    return FromWide(data, LengthOf(data, length));
  }
  bool FromString16(const std::u16string& str) { return FromUtf16(str.data(), str.length()); }
  bool FromString16(const char16_t* data, size_t length = 0) {
    return FromUtf16(data, LengthOf(data, length));
  }

  // Returns the text as UTF-8.
  std::string ToString() const { return Convert<CefStringTraitsUTF8>(&traits::to_utf8); }
  std::wstring ToWString() const { return Convert<CefStringTraitsWide>(&traits::to_wide); }
  std::u16string ToString16() const { return Convert<CefStringTraitsUTF16>(&traits::to_utf16); }

  operator std::string() const { return ToString(); }
  operator std::wstring() const { return ToWString(); }
  operator std::u16string() const { return ToString16(); }

  bool operator<(const CefStringBase& str) const { return compare(str) < 0; }
  bool operator<=(const CefStringBase& str) const { return compare(str) <= 0; }
  bool operator>(const CefStringBase& str) const { return compare(str) > 0; }
  bool operator>=(const CefStringBase& str) const { return compare(str) >= 0; }
  bool operator==(const CefStringBase& str) const { return compare(str) == 0; }
  bool operator!=(const CefStringBase& str) const { return compare(str) != 0; }

  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): as CEF declares it.
  CefStringBase& operator=(const CefStringBase& str) {
    FromString(str.c_str(), str.length(), true);
    return *this;
  }
  CefStringBase& operator=(const std::string& str) {
    FromString(str);
    return *this;
  }
  CefStringBase& operator=(const char* str) {
    FromString(str);
    return *this;
  }
  CefStringBase& operator=(const std::wstring& str) {
    FromWString(str);
    return *this;
  }
  CefStringBase& operator=(const wchar_t* str) {
    FromWString(str);
    return *this;
  }
  CefStringBase& operator=(const std::u16string& str) {
    FromString16(str);
    return *this;
  }
  CefStringBase& operator=(const char16_t* str) {
    FromString16(str);
    return *this;
  }

 private:
  template <typename Char>
  static size_t LengthOf(const Char* data, size_t length) {
    return data && length == 0 ? std::char_traits<Char>::length(data) : length;
  }

  bool Empty() {
    clear();
    return true;
  }

  template <typename Filler>
  bool Fill(Filler fill) {
    AllocIfNeeded();
    return fill(string_);
  }

  bool FromUtf8(const char* data, size_t length) {
    return data && length
               ? Fill([&](struct_type* s) { return traits::from_string(data, length, s); })
               : Empty();
  }
  bool FromWide(const wchar_t* data, size_t length) {
    return data && length
               ? Fill([&](struct_type* s) { return traits::from_wstring(data, length, s); })
               : Empty();
  }
  bool FromUtf16(const char16_t* data, size_t length) {
    return data && length
               ? Fill([&](struct_type* s) { return traits::from_string16(data, length, s); })
               : Empty();
  }

  template <class Target>
  std::basic_string<typename Target::char_type> Convert(
      void (*convert)(const struct_type*, typename Target::struct_type*)) const {
    std::basic_string<typename Target::char_type> result;
    if (!empty()) {
      typename Target::struct_type converted = {};
      convert(string_, &converted);
      if (converted.length > 0) {
        result.assign(converted.str, converted.length);
      }
      Target::clear(&converted);
    }
    return result;
  }

  void AllocIfNeeded() {
    if (!string_) {
      string_ = new struct_type{};
      owner_ = true;
    }
  }

  struct_type* string_ = nullptr;
  bool owner_ = false;
};

typedef CefStringBase<CefStringTraitsWide> CefStringWide;
typedef CefStringBase<CefStringTraitsUTF8> CefStringUTF8;
typedef CefStringBase<CefStringTraitsUTF16> CefStringUTF16;
