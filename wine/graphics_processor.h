// Gap: a graphics processor.
//
// Wine 8: offers Direct3D and OpenGL to programs whether or not the machine can draw with them.
// Chromium: believes it, and its GPU process has to crash three times before it is started to draw
// without a graphics processor; until then, some 5 s, the page is black.
//
// The engine is told so in two ways. With the switch "disable-gpu" in the browser process it draws
// without from the start; only the engine's modules see it in the command line. A host may have
// made CEF ignore the command line (CefSettings::command_line_args_disabled), so a GPU process that
// is to use a graphics processor, which is one without the switches "use-gl" and "use-angle", is
// not started at all: the engine tries it three times within half a second, and then does without.
//
// The command line also gives the engine's processes longer to wait for each other than Chromium
// does, which a busy machine needs under Wine. Superfluous: when a page is seen at once, and the
// log has no "GPU process exited unexpectedly", without these functions.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kz::wine {

// Returns the command line with `argument` as the first one after the program.
std::wstring WithFirstArgument(std::wstring_view command_line, std::wstring_view argument);

// Returns whether it is the command line of a process that draws with a graphics processor.
bool NeedsGraphicsProcessor(std::wstring_view command_line);

LPWSTR WINAPI SuppliedGetCommandLineW();
BOOL WINAPI SuppliedCreateProcessW(LPCWSTR application,
                                   LPWSTR command_line,
                                   LPSECURITY_ATTRIBUTES process_attributes,
                                   LPSECURITY_ATTRIBUTES thread_attributes,
                                   BOOL inherit_handles,
                                   DWORD flags,
                                   LPVOID environment,
                                   LPCWSTR folder,
                                   LPSTARTUPINFOW start,
                                   LPPROCESS_INFORMATION process);

}  // namespace kz::wine
