#pragma once

#include "include/internal/cef_time.h"

// A point in time, as it travels through the API.
class CefBaseTime : public cef_basetime_t {
 public:
  CefBaseTime() : cef_basetime_t{} {}
  CefBaseTime(const cef_basetime_t& value) : cef_basetime_t(value) {}
};
