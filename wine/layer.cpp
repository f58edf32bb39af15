// The DLL that supplies what the engine needs of Windows and Wine 8 lacks. The engine itself loads
// it into each of its processes, for the random numbers in process_prng.cpp. It puts its functions
// into the import tables of the engine's modules, and nowhere else: the host's own code, and what
// it loads besides, keep calling Wine.
#include <windows.h>

#include <winternl.h>

#include <array>
#include <string_view>

#include "import_table.h"
#include "supplied_functions.h"

namespace {

// From the Windows documentation; no header of the SDK has them.
struct LoaderNotification {
  ULONG flags;
  const UNICODE_STRING* full_name;
  const UNICODE_STRING* base_name;
  PVOID module;
  ULONG size;
};
using LoaderNotified = void(CALLBACK*)(ULONG reason, const LoaderNotification*, PVOID context);
using LdrRegisterDllNotificationFunction = LONG(NTAPI*)(ULONG flags,
                                                        LoaderNotified notified,
                                                        PVOID context,
                                                        PVOID* cookie);
constexpr ULONG kModuleLoaded = 1;

// Both call Windows by themselves, and are loaded one after the other.
constexpr std::array<std::wstring_view, 2> kEngineModules = {L"libcef.dll", L"chrome_elf.dll"};

bool IsEngineModule(std::wstring_view name) {
  for (const std::wstring_view module : kEngineModules) {
    if (name.size() == module.size() &&
        CompareStringOrdinal(name.data(), static_cast<int>(name.size()), module.data(),
                             static_cast<int>(module.size()), TRUE) == CSTR_EQUAL) {
      return true;
    }
  }
  return false;
}

// Called with the loader's lock held, before the module's own code first runs.
void CALLBACK ModuleChanged(ULONG reason, const LoaderNotification* notification, PVOID) {
  const UNICODE_STRING* name = notification->base_name;
  if (reason == kModuleLoaded && IsEngineModule({name->Buffer, name->Length / sizeof(wchar_t)})) {
    kz::wine::ReplaceImports(static_cast<HMODULE>(notification->module), &kz::wine::SuppliedImport);
  }
}

// chrome_elf.dll loads this DLL while it is being loaded itself, mostly on behalf of libcef.dll,
// which is then in memory and linked already. A libcef.dll that comes later is met by
// ModuleChanged.
void Install() {
  for (const std::wstring_view name : kEngineModules) {
    if (const HMODULE module = GetModuleHandleW(name.data())) {
      kz::wine::ReplaceImports(module, &kz::wine::SuppliedImport);
    }
  }
  const auto register_notification = reinterpret_cast<LdrRegisterDllNotificationFunction>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "LdrRegisterDllNotification"));
  if (register_notification) {
    PVOID cookie = nullptr;
    register_notification(0, &ModuleChanged, nullptr, &cookie);
  }
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(instance);
    // The engine's import tables point here from now on.
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(instance), &pinned);
    Install();
  }
  return TRUE;
}
