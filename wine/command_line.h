// Gap: a graphics processor.
//
// Wine 8: offers Direct3D and OpenGL to programs whether or not the machine can draw with them.
// Chromium: believes it, and its GPU process crashes three times before it falls back to drawing
// without (5 s later, with a page that is black until then). With the switch "disable-gpu" it does
// so at once. The engine's modules read the switch in the command line of the browser process; the
// process's own view of its command line stays as it is.
// Superfluous: when a page is seen at once, and the log has no "GPU process exited unexpectedly",
// without this function.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kz::wine {

// Returns the command line with `text` as the first argument after the program.
std::wstring WithFirstArgument(std::wstring_view command_line, std::wstring_view text);

LPWSTR WINAPI SuppliedGetCommandLineW();

}  // namespace kz::wine
