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
