// How start-up gets at the command-line switches of a settings object, which its automation
// interface can only add to.
#pragma once

#include <windows.h>

#include "KZCEFComWrapper.h"
#include "utils/process_settings.h"

namespace kzcef {

// What the settings object of this library offers beyond its automation interface. It passes a C++
// object and therefore works inside the process only: somebody else's settings object, or one
// behind a proxy, does not have it and counts as holding no switches.
MIDL_INTERFACE("5d2e8a0b-7c1f-4e63-9b4a-0f6d2c91a7e8")
ICommandLineSource : public IKZCEFComSettings {
  // Writes a copy of the object's table to `args`. Returns S_OK, E_POINTER or E_OUTOFMEMORY.
  virtual HRESULT STDMETHODCALLTYPE CopyCommandLineArgs(CommandLineArgs * args) = 0;
};

}  // namespace kzcef

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(kzcef::ICommandLineSource,
                0x5d2e8a0b,
                0x7c1f,
                0x4e63,
                0x9b,
                0x4a,
                0x0f,
                0x6d,
                0x2c,
                0x91,
                0xa7,
                0xe8)
#endif
