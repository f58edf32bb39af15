// A counted class factory. The module lock is taken with the second reference and given back when
// only the cache's is left, so that the cache alone does not keep the DLL loaded.

#include "server/class_factory.h"

#include <new>

#include "com/module.h"

namespace kzcef {
namespace {

// The reference that the class table's cache holds.
constexpr ULONG kCacheReferences = 1;

}  // namespace

HRESULT ClassFactory::Create(ObjectCreator creator, REFIID iid, void** factory) noexcept {
  *factory = nullptr;
  auto* created = new (std::nothrow) ClassFactory(creator);
  if (!created) {
    return E_OUTOFMEMORY;
  }
  created->AddRef();
  const HRESULT result = created->QueryInterface(iid, factory);
  created->Release();
  return result;
}

HRESULT ClassFactory::QueryInterface(REFIID iid, void** object) {
  if (!object) {
    return E_POINTER;
  }
  if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

ULONG ClassFactory::AddRef() {
  const ULONG count = references_.fetch_add(1) + 1;
  if (count == kCacheReferences + 1) {
    ModuleLock::Add();
  }
  return count;
}

ULONG ClassFactory::Release() {
  const ULONG left = references_.fetch_sub(1) - 1;
  if (left == kCacheReferences) {
    ModuleLock::Release();
  }
  if (left == 0) {
    delete this;
  }
  return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
  const ModuleStateScope module_state;
  if (!object) {
    return E_POINTER;
  }
  *object = nullptr;
  if (outer && !IsEqualIID(iid, IID_IUnknown)) {
    return CLASS_E_NOAGGREGATION;
  }
  return creator_(outer, iid, object);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    ModuleLock::Add();
  } else {
    ModuleLock::Release();
  }
  return S_OK;
}

}  // namespace kzcef
