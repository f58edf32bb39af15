// Calls on an automation object by name, as a late-bound client makes them.
#pragma once

#include <span>
#include <string>

#include "com/variant.h"

namespace kzhost {

// Each looks the name up with GetIDsOfNames and then calls Invoke. Arguments are in the order of
// the declaration. Returns the member's own failure where Invoke reports one as an exception
// (DISP_E_EXCEPTION), otherwise what Invoke returned. `result` (may be null) receives the return
// value.
HRESULT CallMethod(IDispatch* object,
                   const std::wstring& name,
                   std::span<Variant> arguments,
                   VARIANT* result);
HRESULT GetProperty(IDispatch* object, const std::wstring& name, VARIANT* result);
HRESULT PutProperty(IDispatch* object, const std::wstring& name, Variant value);

}  // namespace kzhost
