#pragma once

#include "include/internal/cef_time.h"

// A point in time, as it travels through the API.
class CefBaseTime : public cef_basetime_t {
 public:
  CefBaseTime() : cef_basetime_t{} {}
  CefBaseTime(const cef_basetime_t& value) : cef_basetime_t(value) {}

  static CefBaseTime Now() { return cef_basetime_now(); }
};

// A point in time in parts.
class CefTime : public cef_time_t {
 public:
  CefTime() : cef_time_t{} {}
  CefTime(const cef_time_t& r) : cef_time_t(r) {}
  explicit CefTime(time_t r) : CefTime() { SetTimeT(r); }
  explicit CefTime(double r) : CefTime() { SetDoubleT(r); }

  void SetTimeT(time_t r) { cef_time_from_timet(r, this); }
  time_t GetTimeT() const {
    time_t time = 0;
    cef_time_to_timet(this, &time);
    return time;
  }

  void SetDoubleT(double r) { cef_time_from_doublet(r, this); }
  double GetDoubleT() const {
    double time = 0;
    cef_time_to_doublet(this, &time);
    return time;
  }

  void Now() { cef_time_now(this); }

  // Milliseconds from |other| to this.
  long long Delta(const CefTime& other) {
    long long delta = 0;
    cef_time_delta(this, &other, &delta);
    return delta;
  }
};
