// Conversions of times by the engine.
#include "include/internal/cef_time.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

// 1970-01-01, which time_t counts from.
constexpr int64_t kUnixEpoch = 11'644'473'600'000'000;
constexpr int64_t kSecond = 1'000'000;

cef_time_t PartsOf(int64_t microseconds) {
  cef_time_t parts = {};
  EXPECT_TRUE(cef_time_from_basetime({microseconds}, &parts));
  return parts;
}

TEST(TimeTest, TakesATimeApart) {
  const cef_time_t time = PartsOf(kUnixEpoch + 951'827'696 * kSecond + 250'000);
  EXPECT_EQ(time.year, 2000);
  EXPECT_EQ(time.month, 2);
  EXPECT_EQ(time.day_of_month, 29);
  EXPECT_EQ(time.day_of_week, 2);
  EXPECT_EQ(time.hour, 12);
  EXPECT_EQ(time.minute, 34);
  EXPECT_EQ(time.second, 56);
  EXPECT_EQ(time.millisecond, 250);
}

TEST(TimeTest, PutsItTogether) {
  const cef_time_t time = PartsOf(kUnixEpoch + 951'827'696 * kSecond);
  time_t seconds = 0;
  EXPECT_TRUE(cef_time_to_timet(&time, &seconds));
  EXPECT_EQ(seconds, 951'827'696);
  cef_basetime_t base = {};
  EXPECT_TRUE(cef_time_to_basetime(&time, &base));
  EXPECT_EQ(base.val, kUnixEpoch + 951'827'696 * kSecond);
}

TEST(TimeTest, ReachesBefore1970) {
  const cef_time_t time = PartsOf(kUnixEpoch - 86'400 * kSecond);
  EXPECT_EQ(time.year, 1969);
  time_t seconds = 0;
  EXPECT_TRUE(cef_time_to_timet(&time, &seconds));
  EXPECT_EQ(seconds, -86'400);
}

}  // namespace
