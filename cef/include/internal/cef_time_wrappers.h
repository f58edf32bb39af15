// include/internal/cef_time_wrappers.h of CEF 123, as far as it is used here: times as C++ classes.
#pragma once

#include "include/internal/cef_time.h"

// A point in time, as it travels through the API.
class CefBaseTime : public cef_basetime_t {
 public:
  CefBaseTime() : cef_basetime_t{} {}
  CefBaseTime(const cef_basetime_t& value) : cef_basetime_t(value) {}
};
