// Gap: the system's random numbers.
//
// Wine 8: has no bcryptprimitives.dll.
// Chromium: loads that DLL before anything else in each process and takes ProcessPrng from it; it
// ends the process where there is none. That the engine loads a DLL of this name is what brings the
// whole layer into each of its processes.
// Superfluous: when Wine has a bcryptprimitives.dll of its own. The rest of
// the layer then needs another way in, or is superfluous as well.
#include <windows.h>

#include <ntsecapi.h>

#include <algorithm>

extern "C" __declspec(dllexport) BOOL WINAPI ProcessPrng(PBYTE data, SIZE_T size) {
  constexpr SIZE_T kMostAtOnce = 1u << 30;
  while (size > 0) {
    const SIZE_T part = std::min(size, kMostAtOnce);
    if (!RtlGenRandom(data, static_cast<ULONG>(part))) {
      return FALSE;
    }
    data += part;
    size -= part;
  }
  return TRUE;
}
