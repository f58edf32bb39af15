// Loads the DLL from the path that the build has set, finds its
// exports, and makes objects through them.

#include "server_library.h"

#include <stdexcept>

#include "contract_table.h"

namespace contract {

using Microsoft::WRL::ComPtr;

std::wstring ServerPath() {
  const std::string path = KZ_SERVER_PATH;
  std::wstring wide(path.begin(), path.end());
  // Wine shows the machine's root as the drive Z.
  return wide.starts_with(L"/") ? L"Z:" + wide : wide;
}

ServerLibrary::ServerLibrary() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  module_ = LoadLibraryW(ServerPath().c_str());
  if (!module_) {
    throw std::runtime_error("cannot load " KZ_SERVER_PATH);
  }
  Find(get_class_object_, "DllGetClassObject");
  Find(can_unload_now_, "DllCanUnloadNow");
  Find(install_, "DllInstall");
  Find(register_, "DllRegisterServer");
  Find(unregister_, "DllUnregisterServer");
}

ServerLibrary::~ServerLibrary() {
  FreeLibrary(module_);
  CoUninitialize();
}

ComPtr<IClassFactory> ServerLibrary::Factory(const char* coclass) const {
  ComPtr<IClassFactory> factory;
  GetClassObject(Guid(CoclassNamed(coclass).clsid), IID_PPV_ARGS(factory.GetAddressOf()));
  return factory;
}

template <typename Function>
void ServerLibrary::Find(Function*& function, const char* name) {
  function = reinterpret_cast<Function*>(GetProcAddress(module_, name));
  if (!function) {
    throw std::runtime_error(std::string("no export ") + name);
  }
}

}  // namespace contract
