// The built DLL, used as a host does that has not registered it.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <string>

namespace kzbench {

// Throws std::runtime_error, naming `what`, for a failure.
void Check(HRESULT result, const char* what);

// Loaded until the process ends. The thread must have initialised COM.
class Server {
 public:
  // Throws std::runtime_error when the DLL cannot be loaded.
  explicit Server(const std::wstring& path);

  template <typename Interface>
  Microsoft::WRL::ComPtr<Interface> Create(REFCLSID class_id) const {
    Microsoft::WRL::ComPtr<Interface> object;
    CreateObject(class_id, __uuidof(Interface), reinterpret_cast<void**>(object.GetAddressOf()));
    return object;
  }

  // The description of an interface in the DLL's type library.
  Microsoft::WRL::ComPtr<ITypeInfo> TypeInfoOf(REFIID interface_id) const;

 private:
  void CreateObject(REFCLSID class_id, REFIID interface_id, void** object) const;

  const std::wstring path_;
  HMODULE module_ = nullptr;
};

}  // namespace kzbench
