// include/cef_file_util.h over the C API.

#include "include/cef_file_util.h"

#include "binding.h"

using cefbinding::CallLibrary;
using cefbinding::Needed;

bool CefCreateDirectory(const CefString& full_path) {
  return CallLibrary(&capi::Functions::cef_create_directory, Needed(full_path));
}

bool CefDeleteFile(const CefString& path, bool recursive) {
  return CallLibrary(&capi::Functions::cef_delete_file, Needed(path), recursive);
}
