// Gap: a lock that a thread held when the process ended it.
//
// Windows: a process that ends first ends its other threads, wherever they are. Whoever then waits
// for a slim lock, in a destructor that runs while the process detaches its DLLs, ends the process.
// Wine 8: waits for ever, for the lock's holder is gone. (For critical sections it does as Windows
// does.)
// Chromium: takes locks in the destructors of its DLL, and its threads hold them at any moment; a
// host that ended soon after it had started the engine stayed, about once in fifty ends.
// Superfluous: when Gap.WaitForALockStillOutlivesItsProcess fails.
#pragma once

#include <windows.h>

namespace kz::wine {

void WINAPI SuppliedAcquireSRWLockExclusive(PSRWLOCK lock);
void WINAPI SuppliedAcquireSRWLockShared(PSRWLOCK lock);

}  // namespace kz::wine
