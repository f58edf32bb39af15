// Gap: the time since the start of the system, without the time asleep.
//
// Wine 8: does not export QueryUnbiasedInterruptTimePrecise.
// Chromium: takes it from kernelbase.dll without a look whether it is there
// (base/time/time_win.cc, LiveTicks).
// Superfluous: when GetProcAddress finds it in Wine's kernelbase.dll.
#include "precise_time.h"

namespace kz::wine {

void WINAPI SuppliedQueryUnbiasedInterruptTimePrecise(PULONGLONG time) {
  constexpr ULONGLONG kUnitsPerSecond = 10'000'000;  // Of 100 ns.
  LARGE_INTEGER counter, frequency;
  QueryPerformanceCounter(&counter);
  QueryPerformanceFrequency(&frequency);
  const auto ticks = static_cast<ULONGLONG>(counter.QuadPart);
  const auto ticks_per_second = static_cast<ULONGLONG>(frequency.QuadPart);
  // Whole seconds apart: the product of all ticks and the units would not fit.
  *time = ticks / ticks_per_second * kUnitsPerSecond +
          ticks % ticks_per_second * kUnitsPerSecond / ticks_per_second;
}

}  // namespace kz::wine
