// Slim locks that know when their process is ending; the gap is told in the header.
#include "locks_at_the_end.h"

// From the Windows documentation; no header of the SDK has it.
extern "C" BOOLEAN NTAPI RtlDllShutdownInProgress();

namespace kz::wine {
namespace {

// The process keeps the status with which it has begun to end.
void EndProcessThatIsEnding() {
  if (RtlDllShutdownInProgress()) {
    TerminateProcess(GetCurrentProcess(), 0);
  }
}

}  // namespace

void WINAPI SuppliedAcquireSRWLockExclusive(PSRWLOCK lock) {
  if (!TryAcquireSRWLockExclusive(lock)) {
    EndProcessThatIsEnding();
    AcquireSRWLockExclusive(lock);
  }
}

void WINAPI SuppliedAcquireSRWLockShared(PSRWLOCK lock) {
  if (!TryAcquireSRWLockShared(lock)) {
    EndProcessThatIsEnding();
    AcquireSRWLockShared(lock);
  }
}

}  // namespace kz::wine
