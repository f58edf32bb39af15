// include/cef_version.h over the C API.

#include "include/cef_version.h"

#include "binding.h"

int cef_version_info(int entry) {
  return cefbinding::CallLibrary(&capi::Functions::cef_version_info, entry);
}
