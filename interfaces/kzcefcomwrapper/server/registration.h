// What registration writes: the six classes under CLSID, and the type library.
#pragma once

#include <windows.h>

namespace kzcef {

// From now until the process ends, registration is for the current user only: it writes under
// HKEY_CURRENT_USER\Software\Classes instead of HKEY_CLASSES_ROOT.
void UsePerUserRegistration() noexcept;

// Writes every class and then the type library. Stops at the first failure and returns it; what was
// written by then stays. Win32 errors are returned in HRESULT form.
HRESULT RegisterServer() noexcept;

// Removes every class with all its subkeys, and the type library. What is not there counts as
// removed. After a failure the rest is still removed; the first failure is returned.
HRESULT UnregisterServer() noexcept;

}  // namespace kzcef
