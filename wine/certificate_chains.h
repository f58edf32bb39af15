// Finding the user's own certificates; the gap is told in the .cpp.
#pragma once

#include <windows.h>

#include <wincrypt.h>

namespace kz::wine {

PCCERT_CHAIN_CONTEXT WINAPI SuppliedCertFindChainInStore(HCERTSTORE store,
                                                         DWORD encoding,
                                                         DWORD flags,
                                                         DWORD find_type,
                                                         const void* find_para,
                                                         PCCERT_CHAIN_CONTEXT previous);

}  // namespace kz::wine
