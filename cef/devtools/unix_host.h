#pragma once

#include <string>

namespace cefedition {

// Wine's bridge between Windows paths and those of the Unix host below it.

/// False on Windows itself.
bool IsUnixHost();

/// The Unix path of a Windows path; the file need not exist. Empty when there is none.
std::string ToUnixPath(const std::wstring& windows_path);

/// The Windows path of a Unix path; empty when there is none.
std::wstring ToWindowsPath(const std::string& unix_path);

}  // namespace cefedition
