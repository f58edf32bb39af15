// The entry points of the DLL.

#include <windows.h>

#include <objbase.h>
#include <olectl.h>

#include <cstdint>
#include <cwchar>
#include <iterator>

#include "com/module.h"
#include "handler/posted_message.h"
#include "server/class_table.h"
#include "server/registration.h"

using kzcef::ModuleStateScope;

namespace {

// Tells whether the DLL's static objects exist: before and after that nobody can be served.
struct ModuleLife {
  ModuleLife() noexcept { constructed = true; }
  ~ModuleLife() { constructed = false; }
  static inline bool constructed = false;
};
const ModuleLife module_life;

// Keeps the DLL loaded while a dialog runs the host's message loop, from where the host may have
// COM unload what is not in use.
struct LoadedWhileInUse {
  LoadedWhileInUse() noexcept { kzcef::ModuleLock::Add(); }
  ~LoadedWhileInUse() { kzcef::ModuleLock::Release(); }
  LoadedWhileInUse(const LoadedWhileInUse&) = delete;
  LoadedWhileInUse& operator=(const LoadedWhileInUse&) = delete;
};

constexpr wchar_t kPerUser[] = L"user";

}  // namespace

STDAPI DllCanUnloadNow() {
  const ModuleStateScope module_state;
  return kzcef::ModuleLock::Count() == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  const ModuleStateScope module_state;
  if (!object) {
    return E_POINTER;
  }
  *object = nullptr;
  return ModuleLife::constructed ? kzcef::GetClassObject(clsid, iid, object) : E_UNEXPECTED;
}

STDAPI DllRegisterServer() {
  const ModuleStateScope module_state;
  return kzcef::RegisterServer();
}

STDAPI DllUnregisterServer() {
  const ModuleStateScope module_state;
  return kzcef::UnregisterServer();
}

STDAPI DllInstall(BOOL install, PCWSTR command_line) {
  const ModuleStateScope module_state;
  // The terminator takes part in the comparison, so that only the whole word matches.
  if (command_line && _wcsnicmp(command_line, kPerUser, std::size(kPerUser)) == 0) {
    kzcef::UsePerUserRegistration();
  }
  if (!install) {
    return kzcef::UnregisterServer();
  }
  const HRESULT result = kzcef::RegisterServer();
  if (FAILED(result)) {
    kzcef::UnregisterServer();
  }
  return result;
}

// The host returns the message that was posted to its main window here, on its own thread, with
// wParam and lParam unchanged. What they name may be long gone, or never have been.
extern "C" void WINAPI HandlePostMsg(std::uint32_t identifier, kzcef::kzCefClientHandler* handler) {
  const ModuleStateScope module_state;
  const LoadedWhileInUse loaded;
  if (ModuleLife::constructed) {
    kzcef::FinishPostedRequest(identifier, handler);
  }
}
