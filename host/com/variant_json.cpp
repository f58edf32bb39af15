// Converts between the values of automation calls and the JSON of steps and events files.

#include "com/variant_json.h"

#include <cstdint>
#include <limits>
#include <new>

#include "portable/notification.h"
#include "wide_text.h"

namespace kzhost {
namespace {

Variant LargeVariant(std::int64_t number) {
  Variant variant;
  variant.vt = VT_I8;
  variant.llVal = number;
  return variant;
}

Variant ArrayVariant(const Json& values) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(values.size()));
  if (!array) {
    throw std::bad_alloc();
  }
  Variant variant;
  variant.vt = VT_ARRAY | VT_BSTR;
  variant.parray = array;
  LONG index = 0;
  for (const Json& value : values) {
    const Bstr text = MakeBstr(ToWide(value.is_string() ? value.get<std::string>() : Dump(value)));
    SafeArrayPutElement(array, &index, text.get());
    ++index;
  }
  return variant;
}

Json ArrayToJson(SAFEARRAY* array) {
  Json texts = Json::array();
  LONG first = 0;
  LONG last = -1;
  if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
      FAILED(SafeArrayGetUBound(array, 1, &last))) {
    return texts;
  }
  for (LONG index = first; index <= last; ++index) {
    BSTR text = nullptr;
    if (SUCCEEDED(SafeArrayGetElement(array, &index, &text))) {
      const Bstr owned(text);
      texts.push_back(BstrToUtf8(text));
    }
  }
  return texts;
}

Json ObjectToJson(const IUnknown* object) {
  return object ? Json{{"object", true}} : Json(nullptr);
}

}  // namespace

Variant TextVariant(const std::wstring& text) {
  Variant variant;
  variant.bstrVal = MakeBstr(text).release();
  variant.vt = VT_BSTR;
  return variant;
}

Variant FlagVariant(bool flag) {
  Variant variant;
  variant.vt = VT_BOOL;
  variant.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

Variant NumberVariant(long number) {
  Variant variant;
  variant.vt = VT_I4;
  variant.lVal = number;
  return variant;
}

Variant HandleVariant(HWND window) {
  return LargeVariant(static_cast<std::int64_t>(reinterpret_cast<INT_PTR>(window)));
}

Variant DoubleVariant(double number) {
  Variant variant;
  variant.vt = VT_R8;
  variant.dblVal = number;
  return variant;
}

Variant ObjectVariant(IDispatch* object) {
  Variant variant;
  variant.vt = VT_DISPATCH;
  variant.pdispVal = object;
  if (object) {
    object->AddRef();
  }
  return variant;
}

Variant JsonToVariant(const Json& value) {
  if (value.is_string()) {
    return TextVariant(ToWide(value.get_ref<const std::string&>()));
  }
  if (value.is_boolean()) {
    return FlagVariant(value.get<bool>());
  }
  if (value.is_number_integer()) {
    const auto number = value.get<std::int64_t>();
    const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                      number <= std::numeric_limits<std::int32_t>::max();
    return fits ? NumberVariant(static_cast<long>(number)) : LargeVariant(number);
  }
  if (value.is_number()) {
    return DoubleVariant(value.get<double>());
  }
  if (value.is_array()) {
    return ArrayVariant(value);
  }
  return value.is_null() ? ObjectVariant(nullptr) : Variant();
}

Json VariantToJson(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return nullptr;
    case VT_BSTR:
      return BstrToUtf8(value.bstrVal);
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_I4:
      return value.lVal;
    case VT_I8:
      return value.llVal;
    case VT_R8:
      return value.dblVal;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return ObjectToJson(value.punkVal);
    case VT_ARRAY | VT_BSTR:
      return ArrayToJson(value.parray);
    default:
      return Json{{"vt", value.vt}};
  }
}

}  // namespace kzhost
