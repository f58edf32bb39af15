// The frames of the COM members: the DLL's own module state inside, no exception out.
#pragma once

#include <windows.h>

#include <comdef.h>

#include <new>
#include <utility>

#include "com/module.h"

namespace kzcef {

// Runs `body`, which returns an HRESULT, as the body of a COM member that touches nothing but its
// object's own memory. Nobody can observe the module state inside such a member, and switching it
// would cost more than the member itself.
// What `body` throws comes back as E_OUTOFMEMORY, the COM error's own code, or E_UNEXPECTED.
template <typename Body>
HRESULT ComLeafMember(Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const _com_error& error) {
    return error.Error();
  } catch (...) {
    return E_UNEXPECTED;
  }
}

// ComLeafMember for a member that by contract never fails: what `body` throws is dropped.
template <typename Body>
HRESULT UnfailingComLeafMember(Body&& body) noexcept {
  ComLeafMember([&] {
    body();
    return S_OK;
  });
  return S_OK;
}

// The frame of every other COM member, with the module state switched.
template <typename Body>
HRESULT ComMember(Body&& body) noexcept {
  const ModuleStateScope module_state;
  return ComLeafMember(std::forward<Body>(body));
}

// ComMember for a member that by contract never fails: what `body` throws is dropped.
template <typename Body>
HRESULT UnfailingComMember(Body&& body) noexcept {
  const ModuleStateScope module_state;
  return UnfailingComLeafMember(std::forward<Body>(body));
}

}  // namespace kzcef
