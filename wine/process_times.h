// The cycles that a process has used; the gap is told in the .cpp.
#pragma once

#include <windows.h>

namespace kz::wine {

BOOL WINAPI SuppliedQueryProcessCycleTime(HANDLE process, PULONG64 cycles);

}  // namespace kz::wine
