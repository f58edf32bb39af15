// Functions that the engine asks for by name; the gap is told in the .cpp.
#pragma once

#include <windows.h>

namespace kz::wine {

FARPROC WINAPI SuppliedGetProcAddress(HMODULE module, LPCSTR name);

}  // namespace kz::wine
