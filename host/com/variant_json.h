// Automation values as JSON and the reverse.
#pragma once

#include <string>

#include "com/variant.h"
#include "portable/json.h"

namespace kzhost {

Variant TextVariant(const std::wstring& text);
Variant FlagVariant(bool flag);
Variant NumberVariant(long number);
Variant HandleVariant(HWND window);
Variant DoubleVariant(double number);
// Takes a reference of its own; a null object is a null IDispatch.
Variant ObjectVariant(IDispatch* object);

// Text, flag, number (VT_I4 where it fits, else VT_I8 or VT_R8); null becomes a null IDispatch, an
// array a SAFEARRAY of BSTR of its texts (what is no text in it is written as JSON). An object
// becomes VT_EMPTY.
Variant JsonToVariant(const Json& value);

// The reverse. An object becomes {"object":true}, VT_EMPTY and a null object become null, and what
// has no JSON form becomes {"vt":number}.
Json VariantToJson(const VARIANT& value);

}  // namespace kzhost
