// Calls through IDispatch, as a script makes them.
#pragma once

#include <windows.h>

#include <comutil.h>
#include <oaidl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace contract {

// What an invocation came to.
struct Outcome {
  HRESULT result = E_FAIL;
  // What the member itself returned, when the result is DISP_E_EXCEPTION.
  HRESULT member_result = S_OK;
  UINT bad_argument = 0;
  _variant_t value;
};

// Calls member `id` with `arguments` in the order in which they are written.
inline Outcome Invoke(IDispatch* object,
                      DISPID id,
                      WORD flags,
                      std::vector<_variant_t> arguments = {}) {
  std::ranges::reverse(arguments);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS params{};
  params.rgvarg = arguments.data();
  params.cArgs = static_cast<UINT>(arguments.size());
  if (flags == DISPATCH_PROPERTYPUT) {
    params.rgdispidNamedArgs = &put;
    params.cNamedArgs = 1;
  }
  Outcome outcome;
  EXCEPINFO exception{};
  outcome.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                                  flags == DISPATCH_PROPERTYPUT ? nullptr : &outcome.value,
                                  &exception, &outcome.bad_argument);
  outcome.member_result = exception.scode;
  return outcome;
}

// The identifier of a name; DISPID_UNKNOWN when the object does not know it.
inline DISPID IdOf(IDispatch* object, std::wstring name) {
  wchar_t* text = name.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

}  // namespace contract
