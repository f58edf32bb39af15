#pragma once

#include "include/cef_base.h"

// Creates a folder with its parents. True when it is there afterwards.
bool CefCreateDirectory(const CefString& full_path);

// Deletes a file, or a folder (with its content if |recursive|). True when nothing is there
// afterwards.
bool CefDeleteFile(const CefString& path, bool recursive);
