// A place in the registry of the process's own, where the tests' hub library can be installed.
#pragma once

#include <windows.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "hub_plan.h"

namespace kzhub {

inline constexpr wchar_t kConnectors[] = L"SOFTWARE\\Velmora\\Q9_Common\\zMOD_Connectors";

struct KeyCloser {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

inline void Check(bool holds, const char* what) {
  if (!holds) {
    throw std::runtime_error(what);
  }
}

inline Key CreateKey(HKEY parent, const std::wstring& name) {
  HKEY key = nullptr;
  Check(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr) == ERROR_SUCCESS,
        "cannot create a registry key");
  return Key(key);
}

// While it lives, the process sees this empty place instead of the machine's part of the registry;
// other programs see nothing of it. One at a time. Its members throw std::runtime_error.
class HubPlace {
 public:
  HubPlace() {
    Check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_.get()) == ERROR_SUCCESS,
          "cannot replace the machine's registry");
  }
  ~HubPlace() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    machine_.reset();
    RegDeleteTreeW(HKEY_CURRENT_USER, place_.c_str());
  }
  HubPlace(const HubPlace&) = delete;
  HubPlace& operator=(const HubPlace&) = delete;

  // Names the folder of a hub installation.
  void SetPath(const std::wstring& path, DWORD type = REG_SZ) {
    const Key key = CreateKey(machine_.get(), kConnectors);
    Check(RegSetValueExW(key.get(), L"Path", 0, type, reinterpret_cast<const BYTE*>(path.c_str()),
                         static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS,
          "cannot write a registry value");
  }

  // Installs the tests' library and returns its plan, which stays when the place has gone.
  Plan& Install() {
    SetPath(KZ_HUB_INSTALLATION);
    const HMODULE library = LoadLibraryW(
        (std::wstring(KZ_HUB_INSTALLATION) + L"\\win_b64\\UKZC\\VLMCommHubUtils.dll").c_str());
    Check(library, "cannot load the hub library");
    return *reinterpret_cast<Plan* (*)()>(GetProcAddress(library, "hubPlan"))();
  }

 private:
  const std::wstring place_ =
      L"Software\\KZCEFComWrapperHubTest" + std::to_wstring(GetCurrentProcessId());
  Key machine_ = CreateKey(HKEY_CURRENT_USER, place_);
};

}  // namespace kzhub
