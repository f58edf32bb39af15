// Loads the engine, as every client of the server does: engine_start.exe LIBCEF_DLL. The exit
// status is 0 when it was loaded, 1 when not; when the attempt ended the process, it is neither.
#include <windows.h>

int wmain(int count, wchar_t** arguments) {
  if (count != 2) {
    return 2;
  }
  // A crash ends the process at once, without a debugger or a window.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  const int status = LoadLibraryExW(arguments[1], nullptr, LOAD_WITH_ALTERED_SEARCH_PATH) ? 0 : 1;
  // Not by way of the engine's own ends of threads and processes.
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
  return status;
}
