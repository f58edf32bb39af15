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

// Conversions to and from seconds since 1970-01-01 UTC. 0 when an argument is null or the parts
// are no valid time.
CEF_EXPORT int cef_time_to_timet(const cef_time_t* cef_time, time_t* time);
CEF_EXPORT int cef_time_from_timet(time_t time, cef_time_t* cef_time);
CEF_EXPORT int cef_time_to_doublet(const cef_time_t* cef_time, double* time);
CEF_EXPORT int cef_time_from_doublet(double time, cef_time_t* cef_time);

CEF_EXPORT int cef_time_now(cef_time_t* cef_time);
CEF_EXPORT cef_basetime_t cef_basetime_now(void);

// |delta| receives |cef_time1| - |cef_time2| in milliseconds.
CEF_EXPORT int cef_time_delta(const cef_time_t* cef_time1,
                              const cef_time_t* cef_time2,
                              long long* delta);

CEF_EXPORT int cef_time_to_basetime(const cef_time_t* from, cef_basetime_t* to);
CEF_EXPORT int cef_time_from_basetime(const cef_basetime_t from, cef_time_t* to);

}  // extern "C"
