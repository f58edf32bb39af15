// Handing a URL to the desktop.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

namespace kzcef {

// Has the desktop open `url` with the program that it uses for that: the default browser, or the
// program of an external scheme. Failures are not reported.
void OpenExternally(const std::wstring& url);

using ShellExecuteFunction = decltype(&ShellExecuteW);

// Replaces ShellExecuteW by `function` for the whole process; null restores it. For programs that
// must see the call instead of making it.
void ReplaceShellExecute(ShellExecuteFunction function);

}  // namespace kzcef
