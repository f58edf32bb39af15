// include/internal/cef_time.h over the C API.

#include "include/internal/cef_time.h"

#include "binding.h"

using cefbinding::CallLibrary;

int cef_time_to_timet(const cef_time_t* cef_time, time_t* time) {
  return CallLibrary(&capi::Functions::cef_time_to_timet, cef_time, time);
}

int cef_time_to_basetime(const cef_time_t* from, cef_basetime_t* to) {
  return CallLibrary(&capi::Functions::cef_time_to_basetime, from, to);
}

int cef_time_from_basetime(const cef_basetime_t from, cef_time_t* to) {
  const auto function = cefbinding::Engine().functions.cef_time_from_basetime;
  return function ? function(from, to) : 0;
}
