// The shell's file operations; the gap is told in the .cpp.
#pragma once

#include <windows.h>

#include <objbase.h>

namespace kz::wine {

HRESULT WINAPI SuppliedCoCreateInstance(REFCLSID class_id,
                                        LPUNKNOWN outer,
                                        DWORD context,
                                        REFIID interface_id,
                                        LPVOID* object);

}  // namespace kz::wine
