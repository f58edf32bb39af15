// include/cef_file_util.h of CEF 123, as far as it is used here: creating folders and deleting
// files. Not for the UI and IO threads.
#pragma once

#include "include/cef_base.h"

// Creates a folder with its parents. Returns true when it exists afterwards.
bool CefCreateDirectory(const CefString& full_path);

// Deletes a file, or a folder (with its content if |recursive|). Returns true when nothing is there
// afterwards.
bool CefDeleteFile(const CefString& path, bool recursive);
