// include/cef_file_util.h over the C API.

#include "include/cef_file_util.h"

#include "binding.h"

using cefbinding::CallEngine;
using cefbinding::Needed;

bool CefCreateDirectory(const CefString& full_path) {
  return CallEngine(&capi::Functions::cef_create_directory, Needed(full_path));
}

bool CefDeleteFile(const CefString& path, bool recursive) {
  if (cefbinding::EngineHasEnded()) {
    return _wunlink(path.ToWString().c_str()) == 0;
  }
  return CallEngine(&capi::Functions::cef_delete_file, Needed(path), recursive);
}
