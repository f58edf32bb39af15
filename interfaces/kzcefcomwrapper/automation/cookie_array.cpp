// Finds the array in a VARIANT and visits its elements, after
// making sure that it really holds texts.

#include "automation/cookie_array.h"

namespace kzcef {
namespace {

const VARIANT& Dereferenced(const VARIANT& value) {
  const bool is_reference = value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal;
  return is_reference ? *value.pvarVal : value;
}

// The array in `value`, or null when there is none.
SAFEARRAY* ArrayIn(const VARIANT& value) {
  if (!(value.vt & VT_ARRAY)) {
    return nullptr;
  }
  if (!(value.vt & VT_BYREF)) {
    return value.parray;
  }
  return value.pparray ? *value.pparray : nullptr;
}

// What is in the elements decides how they may be read, and only the array itself knows it.
bool HoldsTexts(const SAFEARRAY& array) {
  return array.cDims == 1 && (array.fFeatures & FADF_BSTR) != 0 && array.cbElements == sizeof(BSTR);
}

}  // namespace

void ForEachCookieText(const VARIANT& cookies, const std::function<void(BSTR)>& visit) {
  SAFEARRAY* const array = ArrayIn(Dereferenced(cookies));
  if (!array || !HoldsTexts(*array)) {
    return;
  }
  void* data = nullptr;
  if (SUCCEEDED(SafeArrayAccessData(array, &data)) && data) {
    const auto* const texts = static_cast<const BSTR*>(data);
    const ULONG count = array->rgsabound[0].cElements;
    for (ULONG at = 0; at < count; ++at) {
      visit(texts[at]);
    }
  }
  // Hosts know it so: also when the array could not be locked.
  SafeArrayUnaccessData(array);
}

}  // namespace kzcef
