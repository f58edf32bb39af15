// Finds the server's classes: through the registry, or in a DLL at a given path without any
// registration. The type library comes from the same place.

#include "com/server.h"

#include <array>
#include <utility>

#include "KZCEFComWrapper.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

constexpr wchar_t kModuleName[] = L"KZCEFComWrapper.dll";
constexpr GUID kLibraryId = {0xF0673E78,
                             0xFAF0,
                             0x4477,
                             {0xBE, 0xB2, 0x0E, 0xF5, 0xB0, 0xE6, 0xA7, 0xC2}};

using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using HandlePostMsgFunction = void (*)(unsigned int, void*);

template <typename Function>
Function FindExport(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(GetProcAddress(module, name));
}

// The file that the loaded server came from.
std::wstring LoadedServerPath() {
  std::array<wchar_t, 32'768> path{};
  const DWORD length = GetModuleFileNameW(GetModuleHandleW(kModuleName), path.data(),
                                          static_cast<DWORD>(path.size()));
  return std::wstring(path.data(), length);
}

// The DLL that is registered for the current user alone; empty when there is none.
std::wstring PathRegisteredForUser(REFCLSID class_id) {
  std::array<wchar_t, 39> id{};
  StringFromGUID2(class_id, id.data(), static_cast<int>(id.size()));
  const std::wstring key =
      std::wstring(L"Software\\Classes\\CLSID\\") + id.data() + L"\\InprocServer32";
  std::array<wchar_t, 32'768> path{};
  DWORD bytes = static_cast<DWORD>(path.size() * sizeof(wchar_t));
  const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, RRF_RT_REG_SZ,
                                      nullptr, path.data(), &bytes);
  return status == ERROR_SUCCESS ? std::wstring(path.data()) : std::wstring();
}

}  // namespace

Server::Server(std::wstring dll_path) : dll_path_(std::move(dll_path)) {}

HRESULT Server::CreateApplication(ComPtr<IDispatch>& application) {
  return Create(__uuidof(KZCEFComApplication), application);
}

HRESULT Server::CreateByName(const std::wstring& name, ComPtr<IDispatch>& object) {
  HRESULT result = LoadLibraryInformation();
  if (FAILED(result)) {
    return result;
  }
  std::wstring name_copy = name;
  ComPtr<ITypeInfo> information;
  MEMBERID member = MEMBERID_NIL;
  USHORT found = 1;
  result = type_library_->FindName(name_copy.data(), 0, &information, &member, &found);
  if (FAILED(result) || found == 0) {
    return FAILED(result) ? result : CLASS_E_CLASSNOTAVAILABLE;
  }
  TYPEATTR* attributes = nullptr;
  result = information->GetTypeAttr(&attributes);
  if (FAILED(result)) {
    return result;
  }
  const bool is_class = attributes->typekind == TKIND_COCLASS;
  const CLSID class_id = attributes->guid;
  information->ReleaseTypeAttr(attributes);
  return is_class ? Create(class_id, object) : CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT Server::GetTypeInfo(REFIID interface_id, ComPtr<ITypeInfo>& information) {
  const HRESULT result = LoadLibraryInformation();
  return FAILED(result) ? result : type_library_->GetTypeInfoOfGuid(interface_id, &information);
}

void Server::HandlePostedMessage(WPARAM request, LPARAM handler) {
  const HMODULE module = GetModuleHandleW(kModuleName);
  if (const auto handle = FindExport<HandlePostMsgFunction>(module, "HandlePostMsg")) {
    handle(static_cast<unsigned int>(request), reinterpret_cast<void*>(handler));
  }
}

HRESULT Server::Create(REFCLSID class_id, ComPtr<IDispatch>& object) {
  if (!dll_path_.empty()) {
    return CreateFromDll(class_id, object);
  }
  const HRESULT result =
      CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
  if (result != REGDB_E_CLASSNOTREG) {
    return result;
  }
  // Windows finds what is registered for the user; Wine's COM looks at the machine's classes only.
  dll_path_ = PathRegisteredForUser(class_id);
  return dll_path_.empty() ? result : CreateFromDll(class_id, object);
}

HRESULT Server::CreateFromDll(REFCLSID class_id, ComPtr<IDispatch>& object) {
  // Loaded for good: the engine's threads run code of the DLL.
  const HMODULE module = LoadLibraryExW(dll_path_.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module) {
    return HRESULT_FROM_WIN32(GetLastError());
  }
  const auto get_class = FindExport<GetClassObjectFunction>(module, "DllGetClassObject");
  if (!get_class) {
    return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
  }
  ComPtr<IClassFactory> factory;
  const HRESULT result = get_class(class_id, __uuidof(IClassFactory),
                                   reinterpret_cast<void**>(factory.GetAddressOf()));
  return FAILED(result) ? result : factory->CreateInstance(nullptr, IID_PPV_ARGS(&object));
}

HRESULT Server::LoadLibraryInformation() {
  if (type_library_) {
    return S_OK;
  }
  if (dll_path_.empty() && SUCCEEDED(LoadRegTypeLib(kLibraryId, 1, 0, LOCALE_USER_DEFAULT,
                                                    type_library_.GetAddressOf()))) {
    return S_OK;
  }
  // Not registered, or for one user on a system that does not look there: it is in the DLL.
  return LoadTypeLibEx(LoadedServerPath().c_str(), REGKIND_NONE, type_library_.GetAddressOf());
}

}  // namespace kzhost
