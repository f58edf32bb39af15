// A client that knows the server only by its registration. Ends with 0 when every registered class
// can be created and no other, and the type library is found; otherwise says what failed.

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>

#include "contract_table.h"

namespace {

using Microsoft::WRL::ComPtr;

constexpr LCID kEnglishUnitedStates = 0x0409;

int failures = 0;

void Check(HRESULT actual, HRESULT expected, const char* what) {
  if (actual != expected) {
    std::printf("%s: 0x%08lx instead of 0x%08lx\n", what, static_cast<unsigned long>(actual),
                static_cast<unsigned long>(expected));
    ++failures;
  }
}

}  // namespace

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  for (const contract::Coclass& row : contract::Coclasses()) {
    ComPtr<IDispatch> object;
    const HRESULT created =
        CoCreateInstance(contract::Guid(row.clsid), nullptr, CLSCTX_INPROC_SERVER,
                         IID_PPV_ARGS(object.GetAddressOf()));
    Check(created, row.is_creatable ? S_OK : REGDB_E_CLASSNOTREG, row.name);
  }
  ComPtr<ITypeLib> library;
  Check(LoadRegTypeLib(contract::Guid(contract::kLibraryId), 1, 0, kEnglishUnitedStates,
                       library.GetAddressOf()),
        S_OK, contract::kLibraryName);
  CoFreeUnusedLibraries();
  return failures;
}
