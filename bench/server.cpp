// Loads the DLL and makes objects of its classes without any registration.

#include "server.h"

#include <oleauto.h>

#include <cstdio>
#include <stdexcept>

namespace kzbench {

using Microsoft::WRL::ComPtr;

void Check(HRESULT result, const char* what) {
  if (SUCCEEDED(result))
    return;
  char text[200];
  std::snprintf(text, sizeof(text), "%s: 0x%08lX", what, static_cast<unsigned long>(result));
  throw std::runtime_error(text);
}

Server::Server(const std::wstring& path)
    : path_(path), module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
  if (!module_)
    Check(HRESULT_FROM_WIN32(GetLastError()), "loading the server");
}

ComPtr<ITypeInfo> Server::TypeInfoOf(REFIID interface_id) const {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> information;
  Check(LoadTypeLibEx(path_.c_str(), REGKIND_NONE, &library), "loading the type library");
  Check(library->GetTypeInfoOfGuid(interface_id, &information), "finding an interface");
  return information;
}

void Server::CreateObject(REFCLSID class_id, REFIID interface_id, void** object) const {
  using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get_class =
      reinterpret_cast<GetClassObjectFunction>(GetProcAddress(module_, "DllGetClassObject"));
  if (!get_class)
    throw std::runtime_error("the server exports no class objects");
  ComPtr<IClassFactory> factory;
  Check(get_class(class_id, IID_PPV_ARGS(&factory)), "getting a class object");
  Check(factory->CreateInstance(nullptr, interface_id, object), "creating an object");
}

}  // namespace kzbench
