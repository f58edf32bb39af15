// Processes, paths and files. Narrow texts are UTF-8 unless said otherwise, and paths are narrow.
// Failures show in results, not as exceptions. Any thread.
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

// Returns the full path of a process's executable. Returns nothing when the process cannot be
// opened or has ended; an empty text when it runs, but its path cannot be found out or has 260
// characters or more.
std::optional<std::string> GetProcessImagePath(DWORD process_id);

// Returns the path of this process's executable in the ANSI code page, not in UTF-8; at most 260
// characters.
std::string GetExecutablePath();
// Returns the folder of this process's executable, without a backslash at its end.
std::wstring GetExecutableFolder();
// Returns the name of this process's executable without folder and extension, in the ANSI code
// page.
std::string GetExecutableStem();
// Returns the full file name of a module of this process; null stands for the executable.
std::wstring GetModulePath(HMODULE module);

// Returns whether `path` is an existing directory or, when `want_directory` is false, an existing
// file that is not a directory. Returns false when that cannot be found out.
bool PathExists(const std::string& path, bool want_directory);

// Creates a file that does not exist yet and writes `content` to it; nobody else can open the file
// meanwhile. On failure returns false, says why on the standard error stream and leaves what was
// created.
bool WriteNewFile(const std::string& path, std::string_view content);

// Opens an existing file without keeping anybody from reading, writing, renaming or deleting it
// meanwhile. Returns null, with the reason in GetLastError, when it cannot be opened.
UniqueHandle OpenExistingFile(const std::wstring& path, DWORD access);

// Returns the whole file, or nothing when it cannot be opened or read. Keeps nobody from writing,
// renaming or deleting the file meanwhile.
std::optional<std::string> ReadTextFile(const std::string& path);
// Returns the rest of an open file, or nothing when it cannot be read.
std::optional<std::string> ReadText(HANDLE file);

}  // namespace kzcef
