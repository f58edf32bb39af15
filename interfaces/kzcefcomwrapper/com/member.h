// The frame of every COM member: the DLL's own module state inside, no exception out.
#pragma once

#include <windows.h>

#include <comdef.h>

#include <new>

#include "com/module.h"

namespace kzcef {

// Runs `body`, which answers an HRESULT, as the body of a COM member or export. What it throws
// comes back as E_OUTOFMEMORY, the COM error's own code, or E_UNEXPECTED.
template <typename Body>
HRESULT ComMember(Body&& body) noexcept {
  const ModuleStateScope module_state;
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

}  // namespace kzcef
