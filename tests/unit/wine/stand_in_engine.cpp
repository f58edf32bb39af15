// Stands in for libcef.dll and chrome_elf.dll where a test needs a module of one of these names:
// it imports functions that the layer supplies, and exports what it gets from them.
#include <windows.h>

extern "C" __declspec(dllexport) BOOL ImportedCycleTime(ULONG64* cycles) {
  return QueryProcessCycleTime(GetCurrentProcess(), cycles);
}

extern "C" __declspec(dllexport) const wchar_t* ImportedCommandLine() {
  return GetCommandLineW();
}

extern "C" __declspec(dllexport) FARPROC
    ImportedGetProcAddress(const char* module, const char* name) {
  return GetProcAddress(GetModuleHandleA(module), name);
}
