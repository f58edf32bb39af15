// Gap: what the system knows about a process and its machine.
//
// Wine 8: exports none of these; a call of a missing import ends the process.
// Chromium: imports all three. GetProcessInformation tells whether a process is throttled,
// GetFirmwareType goes into the report of a crash, and DeriveAppContainerSidFromAppContainerName
// belongs to the sandbox, which is off.
// Superfluous, each by itself: when GetProcAddress finds it in Wine's kernel32.dll (userenv.dll for
// the last).
#pragma once

#include <windows.h>

namespace kz::wine {

BOOL WINAPI SuppliedGetProcessInformation(HANDLE process,
                                          PROCESS_INFORMATION_CLASS information_class,
                                          LPVOID information,
                                          DWORD size);
BOOL WINAPI SuppliedGetFirmwareType(PFIRMWARE_TYPE type);
HRESULT WINAPI SuppliedDeriveAppContainerSidFromAppContainerName(PCWSTR name, PSID* sid);

}  // namespace kz::wine
