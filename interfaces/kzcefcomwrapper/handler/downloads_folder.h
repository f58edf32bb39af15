// The user's folder for downloads.
#pragma once

#include <windows.h>

#include <shlobj.h>

#include <string>

namespace kzcef {

// The path of the user's Downloads folder without a "\" at its end; empty when the system does not
// tell. Any thread.
std::wstring DownloadsFolder();

using GetKnownFolderPathFunction = decltype(&SHGetKnownFolderPath);

// Puts `function` in the place of SHGetKnownFolderPath, for the whole process; null puts it back.
// For programs in which the folder must lie elsewhere, or nowhere.
void ReplaceGetKnownFolderPath(GetKnownFolderPathFunction function);

}  // namespace kzcef
