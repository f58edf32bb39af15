#pragma once

#include <windows.h>

namespace kz::wine {

BOOL WINAPI SuppliedQueryProcessCycleTime(HANDLE process, PULONG64 cycles);

}  // namespace kz::wine
