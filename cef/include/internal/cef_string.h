// include/internal/cef_string.h of CEF 123, as far as it is used
// here: the encoding that the API's texts have.
#pragma once

// The text type of the API is UTF-16.
#define CEF_STRING_TYPE_UTF16 1

#include "include/internal/cef_string_types.h"
#include "include/internal/cef_string_wrappers.h"

typedef CefStringUTF16 CefString;

typedef char16_t cef_char_t;
typedef cef_string_utf16_t cef_string_t;

#define cef_string_set cef_string_utf16_set
#define cef_string_copy cef_string_utf16_copy
#define cef_string_clear cef_string_utf16_clear
#define cef_string_from_ascii cef_string_ascii_to_utf16
#define cef_string_to_utf8 cef_string_utf16_to_utf8
#define cef_string_from_utf8 cef_string_utf8_to_utf16
#define cef_string_to_utf16 cef_string_utf16_copy
#define cef_string_from_utf16 cef_string_utf16_copy
#define cef_string_to_wide cef_string_utf16_to_wide
#define cef_string_from_wide cef_string_wide_to_utf16
