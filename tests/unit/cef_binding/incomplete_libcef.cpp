// A libcef.dll that says it is the right one, and has nothing else.

#include "engine_pin.h"

extern "C" __declspec(dllexport) const char* cef_api_hash(int) {
  return cefbinding::kEngineApiHash;
}
