// The time since the start of the system, without the time asleep; the gap is told in the .cpp.
#pragma once

#include <windows.h>

namespace kz::wine {

void WINAPI SuppliedQueryUnbiasedInterruptTimePrecise(PULONGLONG time);

}  // namespace kz::wine
