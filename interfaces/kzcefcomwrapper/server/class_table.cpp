// The rows of the table, and the factories, which are made one at a
// time under a lock and read without it.

#include "server/class_table.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>

#include "KZCEFComWrapper.h"
#include "automation/application.h"
#include "automation/browser.h"
#include "automation/browser_handler.h"
#include "automation/cookie_manager.h"
#include "automation/settings.h"
#include "automation/token.h"
#include "com/com_object.h"

namespace kzcef {
namespace {

// Guards the first creation of each factory.
std::mutex factory_creation;

std::array table{
    ClassEntry{&CLSID_KZCEFComApplication, L"KZCEFComApplication class",
               &CreateComObject<CKZCEFComApplication>, nullptr},
    ClassEntry{&CLSID_KZCEFComBrowser, L"KZCEFComBrowser class", &CreateComObject<CKZCEFComBrowser>,
               nullptr},
    ClassEntry{&CLSID_KZCEFComBrowserHandler, L"KZCEFComBrowserHandler class",
               &CreateComObject<CKZCEFComBrowserHandler>, nullptr},
    ClassEntry{&CLSID_KZCEFComCookieManager, L"KZCEFComCookieManager class",
               &CreateComObject<CKZCEFComCookieManager>, nullptr},
    ClassEntry{&CLSID_KZCEFComToken, L"KZCEFComToken class", &CreateComObject<CKZCEFComToken>,
               nullptr},
    ClassEntry{&CLSID_KZCEFComSettings, L"KZCEFComSettings class",
               &CreateComObject<CKZCEFComSettings>, nullptr},
};

// The cached factory of a row. Encoded, as a function table in writable memory is worth protecting.
IUnknown* CachedFactory(ClassEntry& entry) noexcept {
  void* const encoded = std::atomic_ref(entry.encoded_factory).load(std::memory_order_acquire);
  return encoded ? static_cast<IUnknown*>(DecodePointer(encoded)) : nullptr;
}

// The factory of a row in `factory`, made and cached on the first demand.
HRESULT FactoryOf(ClassEntry& entry, IUnknown*& factory) noexcept {
  factory = CachedFactory(entry);
  if (factory) {
    return S_OK;
  }
  const std::scoped_lock lock(factory_creation);
  factory = CachedFactory(entry);
  if (factory) {
    return S_OK;
  }
  void* made = nullptr;
  const HRESULT result = ClassFactory::Create(entry.creator, IID_IUnknown, &made);
  if (SUCCEEDED(result)) {
    std::atomic_ref(entry.encoded_factory).store(EncodePointer(made), std::memory_order_release);
    factory = static_cast<IUnknown*>(made);
  }
  return result;
}

}  // namespace

std::span<ClassEntry> ClassTable() noexcept {
  return table;
}

HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  const auto entry =
      std::ranges::find_if(table, [&](const ClassEntry& row) { return *row.clsid == clsid; });
  if (entry == table.end()) {
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  IUnknown* factory = nullptr;
  const HRESULT made = FactoryOf(*entry, factory);
  if (FAILED(made)) {
    return made;
  }
  const HRESULT result = factory->QueryInterface(iid, object);
  return SUCCEEDED(result) && !*object ? CLASS_E_CLASSNOTAVAILABLE : result;
}

}  // namespace kzcef
