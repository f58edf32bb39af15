// The user's folder for downloads.
#pragma once

#include <windows.h>

#include <shlobj.h>

#include <string>

namespace kzcef {

// Returns the path of the user's Downloads folder without a "\" at its end; empty when the system
// does not supply it. Any thread.
std::wstring DownloadsFolder();

using GetKnownFolderPathFunction = decltype(&SHGetKnownFolderPath);

// Replaces SHGetKnownFolderPath by `function` for the whole process; null restores it. For programs
// in which the folder must lie elsewhere, or nowhere.
void ReplaceGetKnownFolderPath(GetKnownFolderPathFunction function);

}  // namespace kzcef
