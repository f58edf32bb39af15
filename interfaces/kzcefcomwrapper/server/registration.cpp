// Writes and removes the registry keys by hand, and leaves the type library's to the system.

#include "server/registration.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cwctype>
#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>

#include "KZCEFComWrapper.h"
#include "com/module.h"
#include "server/class_table.h"

#ifdef __MINGW32__
// In MinGW-w64's oleaut32 but not in its headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID, SYSKIND);
}
#endif

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;

constexpr wchar_t kVersion[] = L"1.0";
constexpr wchar_t kThreadingModel[] = L"Apartment";

std::atomic<bool> per_user{false};

struct KeyCloser {
  void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using UniqueKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

// Registration runs under the system default locale, whatever locale the thread has.
class SystemLocaleScope {
 public:
  SystemLocaleScope() noexcept : previous_(GetThreadLocale()) {
    SetThreadLocale(LOCALE_SYSTEM_DEFAULT);
  }
  ~SystemLocaleScope() { SetThreadLocale(previous_); }
  SystemLocaleScope(const SystemLocaleScope&) = delete;
  SystemLocaleScope& operator=(const SystemLocaleScope&) = delete;

 private:
  const LCID previous_;
};

// The text of a GUID as the keys hold it: in braces and in lower case.
std::wstring GuidText(const GUID& guid) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  std::ranges::transform(text, text.begin(), [](wchar_t c) { return std::towlower(c); });
  return text.data();
}

HRESULT CreateKey(HKEY parent, const std::wstring& name, UniqueKey& key) {
  HKEY created = nullptr;
  const LSTATUS status = RegCreateKeyExW(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         KEY_READ | KEY_WRITE, nullptr, &created, nullptr);
  key.reset(created);
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

// A null name sets the key's default value.
HRESULT SetText(HKEY key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return HRESULT_FROM_WIN32(static_cast<DWORD>(
      RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size)));
}

HRESULT CreateKeyWithText(HKEY parent, const wchar_t* name, const std::wstring& text) {
  UniqueKey key;
  const HRESULT created = CreateKey(parent, name, key);
  return FAILED(created) ? created : SetText(key.get(), nullptr, text);
}

// Removes a key with everything below it; one that is not there is fine.
HRESULT RemoveTree(HKEY parent, const std::wstring& name) {
  const LSTATUS status = RegDeleteTreeW(parent, name.c_str());
  return status == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

// The key below which the classes are written. It belongs to the system and is never removed.
struct ClassesRoot {
  HKEY hive;
  std::wstring path;
};
ClassesRoot CurrentClassesRoot() {
  return per_user ? ClassesRoot{HKEY_CURRENT_USER, L"Software\\Classes\\CLSID"}
                  : ClassesRoot{HKEY_CLASSES_ROOT, L"CLSID"};
}

HRESULT RegisterClassKeys(HKEY clsid_root, const ClassEntry& entry, const std::wstring& module) {
  const std::wstring clsid = GuidText(*entry.clsid);
  // What an older version left behind goes first.
  HRESULT result = RemoveTree(clsid_root, clsid);
  if (FAILED(result)) {
    return result;
  }
  UniqueKey key;
  if (FAILED(result = CreateKey(clsid_root, clsid, key)) ||
      FAILED(result = SetText(key.get(), nullptr, entry.description))) {
    return result;
  }
  UniqueKey programmable;
  UniqueKey server;
  if (FAILED(result = CreateKey(key.get(), L"Programmable", programmable)) ||
      FAILED(result = CreateKey(key.get(), L"InprocServer32", server)) ||
      FAILED(result = SetText(server.get(), nullptr, module)) ||
      FAILED(result = SetText(server.get(), L"ThreadingModel", kThreadingModel)) ||
      FAILED(result =
                 CreateKeyWithText(key.get(), L"TypeLib", GuidText(LIBID_KZCEFComWrapperLib)))) {
    return result;
  }
  return CreateKeyWithText(key.get(), L"Version", kVersion);
}

HRESULT LoadOwnTypeLibrary(const std::wstring& module, ComPtr<ITypeLib>& library) {
  return LoadTypeLibEx(module.c_str(), REGKIND_NONE, library.GetAddressOf());
}

HRESULT RegisterTypeLibrary(const std::wstring& module) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadOwnTypeLibrary(module, library);
  if (FAILED(loaded)) {
    return loaded;
  }
  std::wstring path = module;
  std::wstring help_folder = std::filesystem::path(module).parent_path().wstring();
  return per_user ? RegisterTypeLibForUser(library.Get(), path.data(), help_folder.data())
                  : RegisterTypeLib(library.Get(), path.data(), help_folder.data());
}

bool IsTypeLibraryRegistered(HKEY hive, const std::wstring& classes) {
  const std::wstring name =
      classes + L"TypeLib\\" + GuidText(LIBID_KZCEFComWrapperLib) + L"\\" + kVersion;
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExW(hive, name.c_str(), 0, KEY_READ, &opened);
  const UniqueKey key(opened);
  return status != ERROR_FILE_NOT_FOUND;
}

HRESULT UnregisterTypeLibrary(const std::wstring& module) {
  if (!IsTypeLibraryRegistered(HKEY_CLASSES_ROOT, L"")) {
    return S_OK;
  }
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadOwnTypeLibrary(module, library);
  if (FAILED(loaded)) {
    return loaded;
  }
  TLIBATTR* raw = nullptr;
  const HRESULT described = library->GetLibAttr(&raw);
  if (FAILED(described)) {
    return described;
  }
  const auto release = [&](TLIBATTR* attributes) { library->ReleaseTLibAttr(attributes); };
  const std::unique_ptr<TLIBATTR, decltype(release)> own(raw, release);
  const auto unregister = per_user ? &UnRegisterTypeLibForUser : &UnRegisterTypeLib;
  const HRESULT result =
      unregister(own->guid, own->wMajorVerNum, own->wMinorVerNum, own->lcid, own->syskind);
  // What HKEY_CLASSES_ROOT showed may be the machine's registration, which is not the user's to
  // end.
  const bool is_left =
      !per_user || IsTypeLibraryRegistered(HKEY_CURRENT_USER, L"Software\\Classes\\");
  return is_left ? result : S_OK;
}

HRESULT RegisterAll() {
  const SystemLocaleScope locale;
  const std::wstring module = ModulePath();
  const ClassesRoot root = CurrentClassesRoot();
  UniqueKey clsid_root;
  const HRESULT opened = CreateKey(root.hive, root.path, clsid_root);
  if (FAILED(opened)) {
    return opened;
  }
  for (const ClassEntry& entry : ClassTable()) {
    const HRESULT result = RegisterClassKeys(clsid_root.get(), entry, module);
    if (FAILED(result)) {
      return result;
    }
  }
  return RegisterTypeLibrary(module);
}

HRESULT UnregisterAll() {
  const SystemLocaleScope locale;
  const ClassesRoot root = CurrentClassesRoot();
  HRESULT first_failure = S_OK;
  const auto note = [&](HRESULT result) {
    if (FAILED(result) && SUCCEEDED(first_failure)) {
      first_failure = result;
    }
  };
  for (const ClassEntry& entry : ClassTable()) {
    note(RemoveTree(root.hive, root.path + L"\\" + GuidText(*entry.clsid)));
  }
  note(UnregisterTypeLibrary(ModulePath()));
  return first_failure;
}

}  // namespace

void UsePerUserRegistration() noexcept {
  per_user = true;
}

HRESULT RegisterServer() noexcept {
  try {
    return RegisterAll();
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT UnregisterServer() noexcept {
  try {
    return UnregisterAll();
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace kzcef
