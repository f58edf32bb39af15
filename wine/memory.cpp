// Functions of the memory manager; the gap is told in the header.
#include "memory.h"

namespace kz::wine {

// What discarded pages hold afterwards is undefined, so they may as well hold what they did.
DWORD WINAPI SuppliedDiscardVirtualMemory(PVOID, SIZE_T) {
  return ERROR_SUCCESS;
}

}  // namespace kz::wine
