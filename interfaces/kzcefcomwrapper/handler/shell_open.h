// Handing a URL to the desktop.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

namespace kzcef {

// Has the desktop open `url` with what it has for it: the default browser, or the program of an
// external scheme. Nothing is reported.
void OpenExternally(const std::wstring& url);

using ShellExecuteFunction = decltype(&ShellExecuteW);

// Puts `function` in the place of ShellExecuteW, for the whole process; null puts it back. For
// programs that must see the call instead of making it.
void ReplaceShellExecute(ShellExecuteFunction function);

}  // namespace kzcef
