// The built DLL, loaded as COM loads it and used through nothing but its exports.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <wrl/client.h>

#include <string>

namespace contract {

// The full path of the DLL under test.
std::wstring ServerPath();

// Loads the DLL for the life of the object, with COM initialised as a single-threaded apartment on
// the calling thread. Throws std::runtime_error when it cannot be loaded or lacks an export.
class ServerLibrary {
 public:
  ServerLibrary();
  ~ServerLibrary();
  ServerLibrary(const ServerLibrary&) = delete;
  ServerLibrary& operator=(const ServerLibrary&) = delete;

  HMODULE module() const { return module_; }

  HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const {
    return get_class_object_(clsid, iid, object);
  }
  HRESULT CanUnloadNow() const { return can_unload_now_(); }
  HRESULT Install(bool install, const wchar_t* command_line) const {
    return install_(install, command_line);
  }
  HRESULT Register() const { return register_(); }
  HRESULT Unregister() const { return unregister_(); }

  Microsoft::WRL::ComPtr<IClassFactory> Factory(const char* coclass) const;

  // A new object of a creatable coclass, as its `Interface`; null when it cannot be made or lacks
  // that interface.
  template <typename Interface>
  Microsoft::WRL::ComPtr<Interface> Create(const char* coclass) const {
    Microsoft::WRL::ComPtr<Interface> object;
    if (const auto factory = Factory(coclass)) {
      factory->CreateInstance(nullptr, IID_PPV_ARGS(object.GetAddressOf()));
    }
    return object;
  }

 private:
  template <typename Function>
  void Find(Function*& function, const char* name);

  HMODULE module_ = nullptr;
  HRESULT(STDAPICALLTYPE* get_class_object_)(REFCLSID, REFIID, void**) = nullptr;
  HRESULT(STDAPICALLTYPE* can_unload_now_)() = nullptr;
  HRESULT(STDAPICALLTYPE* install_)(BOOL, PCWSTR) = nullptr;
  HRESULT(STDAPICALLTYPE* register_)() = nullptr;
  HRESULT(STDAPICALLTYPE* unregister_)() = nullptr;
};

}  // namespace contract
