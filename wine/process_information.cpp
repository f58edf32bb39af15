// What the system knows about a process and its machine; the gap is told in the header.
#include "process_information.h"

namespace kz::wine {

BOOL WINAPI SuppliedGetProcessInformation(HANDLE,
                                          PROCESS_INFORMATION_CLASS information_class,
                                          LPVOID information,
                                          DWORD size) {
  if (information_class != ProcessPowerThrottling ||
      size != sizeof(PROCESS_POWER_THROTTLING_STATE)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  *static_cast<PROCESS_POWER_THROTTLING_STATE*>(information) = {
      .Version = PROCESS_POWER_THROTTLING_CURRENT_VERSION, .ControlMask = 0, .StateMask = 0};
  return TRUE;
}

BOOL WINAPI SuppliedGetFirmwareType(PFIRMWARE_TYPE type) {
  *type = FirmwareTypeBios;
  return TRUE;
}

HRESULT WINAPI SuppliedDeriveAppContainerSidFromAppContainerName(PCWSTR, PSID* sid) {
  *sid = nullptr;
  return E_NOTIMPL;
}

}  // namespace kz::wine
