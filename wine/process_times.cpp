// Gap: the processor cycles that a process has used.
//
// Wine 8: QueryProcessCycleTime fails with ERROR_CALL_NOT_IMPLEMENTED.
// Chromium: ends the process when it fails (base/process/process_metrics_win.cc).
// Superfluous: when the function succeeds for GetCurrentProcess().
#include "process_times.h"

namespace kz::wine {
namespace {

// There is no way from outside to a process's cycles; its time at a nominal 2 GHz grows as they do.
constexpr ULONG64 kCyclesPer100Nanoseconds = 200;

ULONG64 ToNumber(const FILETIME& time) {
  return (static_cast<ULONG64>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

}  // namespace

BOOL WINAPI SuppliedQueryProcessCycleTime(HANDLE process, PULONG64 cycles) {
  FILETIME created, ended, kernel, user;
  if (!GetProcessTimes(process, &created, &ended, &kernel, &user)) {
    return FALSE;
  }
  *cycles = (ToNumber(kernel) + ToNumber(user)) * kCyclesPer100Nanoseconds;
  return TRUE;
}

}  // namespace kz::wine
