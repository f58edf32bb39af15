// include/internal/cef_time.h of CEF 123, as far as it is used here:
// times as C structures, and their conversion.
#pragma once

#include <stdint.h>
#include <time.h>

#include "include/internal/cef_export.h"

extern "C" {

// Microseconds since 1601-01-01 UTC; 0 stands for no time.
typedef struct _cef_basetime_t {
  int64_t val;
} cef_basetime_t;

// A UTC time in parts. |month| is 1 to 12, |day_of_week| 0 (Sunday) to 6.
typedef struct _cef_time_t {
  int year;
  int month;
  int day_of_week;
  int day_of_month;
  int hour;
  int minute;
  int second;
  int millisecond;
} cef_time_t;

// Conversions of a time in parts, to seconds since 1970-01-01 UTC and from and to microseconds
// since 1601. They return 0 when the parts are no valid time.
CEF_EXPORT int cef_time_to_timet(const cef_time_t* cef_time, time_t* time);
CEF_EXPORT int cef_time_to_basetime(const cef_time_t* from, cef_basetime_t* to);
CEF_EXPORT int cef_time_from_basetime(const cef_basetime_t from, cef_time_t* to);

}  // extern "C"
