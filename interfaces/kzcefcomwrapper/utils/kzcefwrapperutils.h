// Processes, paths and files. Narrow texts are UTF-8 except where something else is said, and paths
// are narrow; failures are answers, not exceptions. Any thread.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "utils/handles.h"

namespace kzcef {

// Conversions between UTF-8 and UTF-16. What is not valid becomes U+FFFD.
std::wstring Utf8ToWide(std::string_view text);
std::string WideToUtf8(std::wstring_view text);

DWORD GetCurrentPid();

// The full path of a process's executable. Nothing when the process cannot be opened or has ended;
// an empty text when it runs, but does not tell its path or has one of 260 or more characters.
std::optional<std::string> GetProcessImagePath(DWORD process_id);

// The path of this process's executable in the ANSI code page, not in UTF-8; at most 260
// characters.
std::string GetExecutablePath();
// The folder of this process's executable, without a backslash at its end.
std::wstring GetExecutableFolder();
// The name of this process's executable without folder and extension, in the ANSI code page.
std::string GetExecutableStem();
// The full file name of a module of this process; null asks for the executable's own.
std::wstring GetModulePath(HMODULE module);

// Whether `path` is an existing directory or, when none is wanted, an existing file that is no
// directory. False when that cannot be found out.
bool PathExists(const std::string& path, bool want_directory);

// Creates a file that does not exist yet and writes `content` to it; nobody else can open the file
// meanwhile. On failure answers false, says why on the standard error stream and leaves what was
// created.
bool WriteNewFile(const std::string& path, std::string_view content);

// Opens a file that is there, and keeps nobody from reading, writing, renaming or deleting it
// meanwhile. Null, with the reason in GetLastError, when it cannot be opened.
UniqueHandle OpenExistingFile(const std::wstring& path, DWORD access);

// The whole file, or nothing when it cannot be opened or read. Keeps nobody from writing, renaming
// or deleting the file meanwhile.
std::optional<std::string> ReadTextFile(const std::string& path);
// The rest of an open file.
std::optional<std::string> ReadText(HANDLE file);

}  // namespace kzcef
