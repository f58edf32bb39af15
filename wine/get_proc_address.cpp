// Gap: functions that the engine asks for by name while it runs.
//
// Wine 8: some are missing, some are there and do not do what is asked (see memory.h, painting.h).
// Chromium: takes them from GetProcAddress, either by itself, because not every Windows has them,
// or through its delay-loaded imports (user32, gdi32, ole32 and others). Superfluous: when nothing
// but GetProcAddress is left in the list of supplied_functions.cpp.
#include "get_proc_address.h"

#include "supplied_functions.h"

namespace kz::wine {

FARPROC WINAPI SuppliedGetProcAddress(HMODULE module, LPCSTR name) {
  if (!IS_INTRESOURCE(name)) {
    if (const SuppliedFunction* supplied = FindSuppliedFunction(name)) {
      if (!supplied->function) {
        SetLastError(ERROR_PROC_NOT_FOUND);
      }
      return supplied->function;
    }
  }
  return GetProcAddress(module, name);
}

}  // namespace kz::wine
