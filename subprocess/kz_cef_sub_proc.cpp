// Every process of the engine but the host's own. CEF says on the command line which one this is
// and runs it to its end; started by hand the program ends at once.
#include <windows.h>

#include "include/cef_app.h"

int APIENTRY wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
  return CefExecuteProcess(CefMainArgs(instance), nullptr, nullptr);
}
