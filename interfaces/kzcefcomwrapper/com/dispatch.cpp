// Loads the type library from the DLL's own file.

#include "com/dispatch.h"

#include <oleauto.h>

#include <new>

#include "com/module.h"

namespace kzcef {

HRESULT ModuleTypeInfo(REFIID iid, Microsoft::WRL::ComPtr<ITypeInfo>& info) noexcept {
  try {
    Microsoft::WRL::ComPtr<ITypeLib> library;
    const HRESULT loaded =
        LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.GetAddressOf());
    return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(iid, info.ReleaseAndGetAddressOf());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace kzcef
