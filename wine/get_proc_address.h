#pragma once

#include <windows.h>

namespace kz::wine {

FARPROC WINAPI SuppliedGetProcAddress(HMODULE module, LPCSTR name);

}  // namespace kz::wine
