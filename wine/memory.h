// Gap: functions of the memory manager.
//
// DiscardVirtualMemory
//   Wine 8: does not export it.
//   Chromium: imports it (PartitionAlloc), and calls it to give pages back.
//   Superfluous: when GetProcAddress finds it in Wine's kernelbase.dll.
// VirtualAlloc2, MapViewOfFile3, UnmapViewOfFile2
//   Wine 8: has them, and ignores the placeholders that they are asked for.
//   Chromium: uses them where it finds them (V8's sandbox and shared memory), and manages without.
//   Superfluous: when Wine reserves with MEM_RESERVE_PLACEHOLDER, and maps with
//   MEM_REPLACE_PLACEHOLDER into what was reserved.
#pragma once

#include <windows.h>

namespace kz::wine {

DWORD WINAPI SuppliedDiscardVirtualMemory(PVOID address, SIZE_T size);

}  // namespace kz::wine
