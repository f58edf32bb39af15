// Calls on an automation object by name, as a late-bound client makes them.
#pragma once

#include <span>
#include <string>

#include "com/variant.h"

namespace kzhost {

// Each asks GetIDsOfNames first and then calls Invoke. Arguments are in the order of the
// declaration. The result is the member's own failure where Invoke reports one as an exception
// (DISP_E_EXCEPTION), else what Invoke answered. `result` (may be null) receives the return value.
HRESULT CallMethod(IDispatch* object,
                   const std::wstring& name,
                   std::span<Variant> arguments,
                   VARIANT* result);
HRESULT GetProperty(IDispatch* object, const std::wstring& name, VARIANT* result);
HRESULT PutProperty(IDispatch* object, const std::wstring& name, Variant value);

}  // namespace kzhost
