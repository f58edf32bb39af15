// Ends with the status 7 while one of its threads holds a lock, and takes that lock while its
// modules are detached.
//
// Usage: lock_at_the_end supplied|own. Whose function takes the lock: the layer's or Wine's.
#include "locks_at_the_end.h"

#include <cstring>
#include <thread>

namespace {

constexpr int kStatus = 7;

SRWLOCK lock = SRWLOCK_INIT;
bool takes_by_layer = false;

void WINAPI Detach(void*, DWORD reason, void*) {
  if (reason == DLL_PROCESS_DETACH) {
    if (takes_by_layer) {
      kz::wine::SuppliedAcquireSRWLockExclusive(&lock);
    } else {
      AcquireSRWLockExclusive(&lock);
    }
  }
}

// What the loader calls of a program when it detaches it.
[[gnu::used, gnu::section(".CRT$XLY")]] const PIMAGE_TLS_CALLBACK detach = &Detach;

}  // namespace

int main(int count, char** arguments) {
  takes_by_layer = count > 1 && std::strcmp(arguments[1], "supplied") == 0;
  const HANDLE held = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread([held] {
    AcquireSRWLockExclusive(&lock);
    SetEvent(held);
    Sleep(INFINITE);
  }).detach();
  WaitForSingleObject(held, INFINITE);
  ExitProcess(kStatus);
}
