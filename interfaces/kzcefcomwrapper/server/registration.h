// What registration writes: the six classes under CLSID, and the type library.
#pragma once

#include <windows.h>

namespace kzcef {

// From now until the process ends, registration is for the current user only: it writes under
// HKEY_CURRENT_USER\Software\Classes instead of HKEY_CLASSES_ROOT.
void UsePerUserRegistration() noexcept;

// Writes every class and then the type library; stops at the first failure and answers it, leaving
// what was written. Win32 errors come back in HRESULT form.
HRESULT RegisterServer() noexcept;

// Removes every class with all its subkeys, and the type library. What is not there counts as
// removed; after a failure the rest is still removed, and the first failure is answered.
HRESULT UnregisterServer() noexcept;

}  // namespace kzcef
