// What the exports stand on besides host-thread posting, and what none of these tests is about.
#include "server/class_table.h"
#include "server/registration.h"

namespace kzcef {

HRESULT GetClassObject(REFCLSID, REFIID, void**) noexcept {
  return CLASS_E_CLASSNOTAVAILABLE;
}

void UsePerUserRegistration() noexcept {}

HRESULT RegisterServer() noexcept {
  return E_UNEXPECTED;
}

HRESULT UnregisterServer() noexcept {
  return E_UNEXPECTED;
}

}  // namespace kzcef
