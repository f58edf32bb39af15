// Each line closes one gap; the file of the function tells which. A line goes when Wine has closed
// the gap itself: README.md says how to tell.
#include "supplied_functions.h"

#include <cstring>

#include "certificate_chains.h"
#include "file_operation.h"
#include "get_proc_address.h"
#include "graphics_processor.h"
#include "locks_at_the_end.h"
#include "memory.h"
#include "painting.h"
#include "precise_time.h"
#include "process_information.h"
#include "process_times.h"

namespace kz::wine {
namespace {

template <typename Function>
FARPROC AsProc(Function* function) {
  return reinterpret_cast<FARPROC>(function);
}

const SuppliedFunction kFunctions[] = {
    {"GetProcAddress", AsProc(&SuppliedGetProcAddress)},

    {"QueryProcessCycleTime", AsProc(&SuppliedQueryProcessCycleTime)},
    {"QueryUnbiasedInterruptTimePrecise", AsProc(&SuppliedQueryUnbiasedInterruptTimePrecise)},

    {"AcquireSRWLockExclusive", AsProc(&SuppliedAcquireSRWLockExclusive)},
    {"AcquireSRWLockShared", AsProc(&SuppliedAcquireSRWLockShared)},

    {"DiscardVirtualMemory", AsProc(&SuppliedDiscardVirtualMemory)},
    {"VirtualAlloc2", nullptr},
    {"MapViewOfFile3", nullptr},
    {"UnmapViewOfFile2", nullptr},

    {"GetProcessInformation", AsProc(&SuppliedGetProcessInformation)},
    {"GetFirmwareType", AsProc(&SuppliedGetFirmwareType)},
    {"DeriveAppContainerSidFromAppContainerName",
     AsProc(&SuppliedDeriveAppContainerSidFromAppContainerName)},

    {"CoCreateInstance", AsProc(&SuppliedCoCreateInstance)},

    {"CertFindChainInStore", AsProc(&SuppliedCertFindChainInStore)},

    {"CreateProcessW", AsProc(&SuppliedCreateProcessW)},
    {"GetCommandLineW", AsProc(&SuppliedGetCommandLineW)},
    {"DCompositionCreateDevice", nullptr},
    {"DCompositionCreateDevice2", nullptr},
    {"DCompositionCreateDevice3", nullptr},
    {"GetPropW", AsProc(&SuppliedGetPropW)},
    {"SetWindowLongW", AsProc(&SuppliedSetWindowLongW)},
    {"UpdateLayeredWindow", AsProc(&SuppliedUpdateLayeredWindow)},
};

}  // namespace

const SuppliedFunction* FindSuppliedFunction(const char* name) {
  for (const SuppliedFunction& function : kFunctions) {
    if (std::strcmp(function.name, name) == 0) {
      return &function;
    }
  }
  return nullptr;
}

FARPROC SuppliedImport(const char* name) {
  const SuppliedFunction* function = FindSuppliedFunction(name);
  return function ? function->function : nullptr;
}

}  // namespace kz::wine
