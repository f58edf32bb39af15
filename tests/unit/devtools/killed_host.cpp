// A host that starts the engine and never ends by itself: `killed_host FILE LOG` writes the Unix
// process id of its browser to FILE once that runs.
#include <windows.h>

#include <filesystem>
#include <fstream>

#include "devtools/engine.h"
#include "include/cef_app.h"

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    return 2;
  }
  CefSettings settings;
  settings.command_line_args_disabled = true;
  CefString(&settings.log_file) = arguments[2];
  if (!CefInitialize(CefMainArgs(GetModuleHandleW(nullptr)), settings, nullptr, nullptr)) {
    return 1;
  }
  // Under another name at first: whoever waits for the file finds it whole.
  const std::filesystem::path draft = std::wstring(arguments[1]) + L".new";
  std::ofstream(draft) << cefedition::Engine::Get()->unix_pid();
  std::filesystem::rename(draft, arguments[1]);
  Sleep(INFINITE);
  return 0;
}
