// A DLL whose process ends with the status 7 while one of its threads holds a lock, and which takes
// that lock when it is detached. For rundll32: "rundll32 lock_at_the_end.dll,End supplied" takes it
// by the layer's function, any other word than "supplied" by Wine's.
#include "locks_at_the_end.h"

#include <cstring>
#include <thread>

namespace {

constexpr int kStatus = 7;

SRWLOCK lock = SRWLOCK_INIT;
bool takes_by_layer = false;

}  // namespace

extern "C" __declspec(dllexport) void CALLBACK End(HWND, HINSTANCE, char* word, int) {
  takes_by_layer = std::strcmp(word, "supplied") == 0;
  const HANDLE held = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread([held] {
    AcquireSRWLockExclusive(&lock);
    SetEvent(held);
    Sleep(INFINITE);
  }).detach();
  WaitForSingleObject(held, INFINITE);
  ExitProcess(kStatus);
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
  if (reason == DLL_PROCESS_DETACH) {
    if (takes_by_layer) {
      kz::wine::SuppliedAcquireSRWLockExclusive(&lock);
    } else {
      AcquireSRWLockExclusive(&lock);
    }
  }
  return TRUE;
}
