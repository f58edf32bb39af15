#pragma once

#include "include/cef_base.h"

// Creates a folder with its parents. True when it is there afterwards.
bool CefCreateDirectory(const CefString& full_path);

// The folder for temporary files.
bool CefGetTempDirectory(CefString& temp_dir);

// Creates a new folder in the folder for temporary files.
bool CefCreateNewTempDirectory(const CefString& prefix, CefString& new_temp_path);

// Creates a new folder inside |base_dir|, its name starting with |prefix|.
bool CefCreateTempDirectoryInDirectory(const CefString& base_dir,
                                       const CefString& prefix,
                                       CefString& new_dir);

// True for an existing folder.
bool CefDirectoryExists(const CefString& path);

// Deletes a file, or a folder (with its content if |recursive|). True when nothing is there
// afterwards.
bool CefDeleteFile(const CefString& path, bool recursive);
