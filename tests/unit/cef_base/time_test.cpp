#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "include/cef_base.h"

namespace {

TEST(TimeTest, TakesATimeApart) {
  const CefTime time(static_cast<time_t>(951827696));
  EXPECT_EQ(time.year, 2000);
  EXPECT_EQ(time.month, 2);
  EXPECT_EQ(time.day_of_month, 29);
  EXPECT_EQ(time.day_of_week, 2);
  EXPECT_EQ(time.hour, 12);
  EXPECT_EQ(time.minute, 34);
  EXPECT_EQ(time.second, 56);
  EXPECT_EQ(time.GetTimeT(), 951827696);
}

TEST(TimeTest, KeepsMilliseconds) {
  const CefTime time(1000.25);
  EXPECT_EQ(time.millisecond, 250);
  EXPECT_EQ(time.GetDoubleT(), 1000.25);
}

TEST(TimeTest, ReachesBeyond1970) {
  EXPECT_EQ(CefTime(static_cast<time_t>(-86400)).year, 1969);
  EXPECT_EQ(CefTime(static_cast<time_t>(-86400)).GetTimeT(), -86400);
}

TEST(TimeTest, RefusesWhatIsNoTime) {
  cef_time_t parts = {};
  time_t seconds = 7;
  EXPECT_FALSE(cef_time_to_timet(&parts, &seconds));
  EXPECT_EQ(seconds, 7);
  EXPECT_EQ(CefTime().GetTimeT(), 0);
  parts = {2001, 2, 0, 29, 0, 0, 0, 0};
  EXPECT_FALSE(cef_time_to_timet(&parts, &seconds));
  EXPECT_FALSE(cef_time_from_doublet(std::nan(""), &parts));
  EXPECT_FALSE(cef_time_from_doublet(std::numeric_limits<double>::infinity(), &parts));
  EXPECT_FALSE(cef_time_from_doublet(1e300, &parts));
  EXPECT_FALSE(cef_time_to_timet(nullptr, &seconds));
  EXPECT_FALSE(cef_time_from_basetime({-1}, &parts));
}

TEST(TimeTest, BaseTimeCountsFrom1601) {
  cef_basetime_t base = {};
  const CefTime epoch(static_cast<time_t>(0));
  EXPECT_TRUE(cef_time_to_basetime(&epoch, &base));
  EXPECT_EQ(base.val, 11644473600000000LL);
  cef_time_t parts = {};
  EXPECT_TRUE(cef_time_from_basetime(base, &parts));
  EXPECT_EQ(parts.year, 1970);
}

TEST(TimeTest, DeltaIsInMilliseconds) {
  CefTime later(1000.5);
  EXPECT_EQ(later.Delta(CefTime(999.25)), 1250);
  EXPECT_EQ(CefTime(999.25).Delta(later), -1250);
}

TEST(TimeTest, NowIsNow) {
  CefTime now;
  now.Now();
  EXPECT_NEAR(now.GetDoubleT(), static_cast<double>(std::time(nullptr)), 2.0);
  EXPECT_GT(CefBaseTime::Now().val, 13000000000000000LL);
}

}  // namespace
