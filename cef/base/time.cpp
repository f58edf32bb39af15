#include "include/internal/cef_time.h"

#include <windows.h>

#include <cmath>
#include <cstdint>

// Conversions through FILETIME, whose epoch is that of cef_basetime_t.

namespace {

constexpr int64_t kTicksPerMicrosecond = 10;
constexpr int64_t kMicrosecondsPerSecond = 1000000;
constexpr int64_t kMicrosecondsPerMillisecond = 1000;
// From 1601-01-01 to 1970-01-01.
constexpr int64_t kUnixEpoch = 11644473600LL * kMicrosecondsPerSecond;

int64_t ToMicroseconds(const FILETIME& time) {
  const uint64_t ticks = (static_cast<uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  return static_cast<int64_t>(ticks) / kTicksPerMicrosecond;
}

bool ToBaseTime(const cef_time_t& parts, cef_basetime_t* result) {
  SYSTEMTIME system = {};
  system.wYear = static_cast<WORD>(parts.year);
  system.wMonth = static_cast<WORD>(parts.month);
  system.wDay = static_cast<WORD>(parts.day_of_month);
  system.wHour = static_cast<WORD>(parts.hour);
  system.wMinute = static_cast<WORD>(parts.minute);
  // A leap second counts as the last ordinary one.
  system.wSecond = static_cast<WORD>(parts.second == 60 ? 59 : parts.second);
  system.wMilliseconds = static_cast<WORD>(parts.millisecond);
  FILETIME file = {};
  SYSTEMTIME back = {};
  if (parts.year < 1601 || parts.year > 30827 || !SystemTimeToFileTime(&system, &file) ||
      !FileTimeToSystemTime(&file, &back)) {
    return false;
  }
  // Not every system refuses the thirtieth of February.
  if (back.wMonth != parts.month || back.wDay != parts.day_of_month) {
    return false;
  }
  result->val = ToMicroseconds(file);
  return true;
}

bool FromBaseTime(int64_t microseconds, cef_time_t* parts) {
  if (microseconds < 0 || microseconds > INT64_MAX / kTicksPerMicrosecond) {
    return false;
  }
  const uint64_t ticks = static_cast<uint64_t>(microseconds * kTicksPerMicrosecond);
  const FILETIME file = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  SYSTEMTIME system = {};
  if (!FileTimeToSystemTime(&file, &system)) {
    return false;
  }
  *parts = {system.wYear, system.wMonth,  system.wDayOfWeek, system.wDay,
            system.wHour, system.wMinute, system.wSecond,    system.wMilliseconds};
  return true;
}

}  // namespace

int cef_time_to_timet(const cef_time_t* cef_time, time_t* time) {
  double seconds = 0;
  if (!time || !cef_time_to_doublet(cef_time, &seconds)) {
    return 0;
  }
  *time = static_cast<time_t>(std::floor(seconds));
  return 1;
}

int cef_time_from_timet(time_t time, cef_time_t* cef_time) {
  return cef_time_from_doublet(static_cast<double>(time), cef_time);
}

int cef_time_to_doublet(const cef_time_t* cef_time, double* time) {
  cef_basetime_t base = {};
  if (!time || !cef_time_to_basetime(cef_time, &base)) {
    return 0;
  }
  *time = static_cast<double>(base.val - kUnixEpoch) / kMicrosecondsPerSecond;
  return 1;
}

int cef_time_from_doublet(double time, cef_time_t* cef_time) {
  // Beyond this range the parts have no meaning, and the conversion to an integer none either.
  constexpr double kFurthest = 1e12;
  if (!cef_time || !(std::fabs(time) < kFurthest)) {
    return 0;
  }
  return FromBaseTime(std::llround(time * kMicrosecondsPerSecond) + kUnixEpoch, cef_time);
}

int cef_time_now(cef_time_t* cef_time) {
  return cef_time ? FromBaseTime(cef_basetime_now().val, cef_time) : 0;
}

cef_basetime_t cef_basetime_now() {
  FILETIME now = {};
  GetSystemTimePreciseAsFileTime(&now);
  return {ToMicroseconds(now)};
}

int cef_time_delta(const cef_time_t* cef_time1, const cef_time_t* cef_time2, long long* delta) {
  cef_basetime_t first = {};
  cef_basetime_t second = {};
  if (!delta || !cef_time_to_basetime(cef_time1, &first) ||
      !cef_time_to_basetime(cef_time2, &second)) {
    return 0;
  }
  *delta = (first.val - second.val) / kMicrosecondsPerMillisecond;
  return 1;
}

int cef_time_to_basetime(const cef_time_t* from, cef_basetime_t* to) {
  return from && to && ToBaseTime(*from, to);
}

int cef_time_from_basetime(const cef_basetime_t from, cef_time_t* to) {
  return to && FromBaseTime(from.val, to);
}
