#pragma once

#include <windows.h>

namespace kz::wine {

void WINAPI SuppliedQueryUnbiasedInterruptTimePrecise(PULONGLONG time);

}  // namespace kz::wine
