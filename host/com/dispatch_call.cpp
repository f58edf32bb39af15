// Late-bound calls: looks a member up by its name and invokes it with the
// arguments in IDispatch's order, the last one first.

#include "com/dispatch_call.h"

#include <utility>
#include <vector>

#include "wide_text.h"

namespace kzhost {
namespace {

HRESULT Invoke(IDispatch* object,
               const std::wstring& name,
               WORD kind,
               DISPPARAMS& parameters,
               VARIANT* result) {
  if (!object) {
    return E_POINTER;
  }
  std::wstring name_copy = name;
  LPOLESTR names = name_copy.data();
  DISPID id = DISPID_UNKNOWN;
  HRESULT outcome = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(outcome)) {
    return outcome;
  }
  EXCEPINFO exception = {};
  UINT wrong_argument = 0;
  outcome = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &exception,
                           &wrong_argument);
  if (outcome != DISP_E_EXCEPTION) {
    return outcome;
  }
  if (exception.pfnDeferredFillIn) {
    exception.pfnDeferredFillIn(&exception);
  }
  const Bstr source(exception.bstrSource);
  const Bstr description(exception.bstrDescription);
  const Bstr help_file(exception.bstrHelpFile);
  return FAILED(exception.scode) ? exception.scode : outcome;
}

}  // namespace

HRESULT CallMethod(IDispatch* object,
                   const std::wstring& name,
                   std::span<Variant> arguments,
                   VARIANT* result) {
  // Invoke wants the last argument first. The copies own nothing: the caller's variants do.
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return Invoke(object, name, DISPATCH_METHOD, parameters, result);
}

HRESULT GetProperty(IDispatch* object, const std::wstring& name, VARIANT* result) {
  DISPPARAMS parameters = {};
  return Invoke(object, name, DISPATCH_PROPERTYGET, parameters, result);
}

HRESULT PutProperty(IDispatch* object, const std::wstring& name, Variant value) {
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {&value, &put, 1, 1};
  return Invoke(object, name, DISPATCH_PROPERTYPUT, parameters, nullptr);
}

}  // namespace kzhost
