// Which trace lines are written, and in which form. Runs beside a double of the host's trace
// library.
#include "utils/tracing.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "trace_lines.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

void SetSwitch(const wchar_t* value) {
  ASSERT_TRUE(SetEnvironmentVariableW(L"CefLogEnabled", value) || !value);
}

class TraceOffTest : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(TraceOffTest, TracesNothing) {
  SetSwitch(GetParam());
  EXPECT_FALSE(IsTraceEnabled());
  Trace(L"line");
  Trace2("first", "second");
  EXPECT_THAT(TraceLines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Values,
    TraceOffTest,
    ::testing::Values(nullptr, L"", L"0", L"2", L"11", L"-1", L"yes", L"4294967297"),
    [](const auto& value) { return "Value" + std::to_string(value.index); });

class TraceOnTest : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(TraceOnTest, TracesEachLine) {
  SetSwitch(GetParam());
  EXPECT_TRUE(IsTraceEnabled());
  Trace(L"line");
  EXPECT_THAT(TraceLines(), ElementsAre(TraceLine{"KZCEF", L"%s", L"KZCEF Trace: line"}));
}

INSTANTIATE_TEST_SUITE_P(Values,
                         TraceOnTest,
                         ::testing::Values(L"1", L"1abc", L" 1", L"+1", L"01"),
                         [](const auto& value) { return "Value" + std::to_string(value.index); });

TEST(Tracing, ReadsItsSwitchOnceAndStaysOff) {
  SetSwitch(L"0");
  EXPECT_FALSE(IsTraceEnabled());
  SetSwitch(L"1");
  EXPECT_FALSE(IsTraceEnabled());
  Trace(L"line");
  EXPECT_THAT(TraceLines(), IsEmpty());
}

TEST(Tracing, ReadsItsSwitchOnceAndStaysOn) {
  SetSwitch(L"1");
  EXPECT_TRUE(IsTraceEnabled());
  SetSwitch(L"0");
  Trace(L"line");
  EXPECT_THAT(TraceLines(), SizeIs(1));
}

TEST(Tracing, DoesNotCareForTheLevel) {
  SetSwitch(L"1");
  Trace(L"a", 0);
  Trace(L"b", 255);
  EXPECT_THAT(TraceTexts(), ElementsAre(L"KZCEF Trace: a", L"KZCEF Trace: b"));
}

TEST(Tracing, PassesTextsThatLookLikeFormatsAsTheyAre) {
  SetSwitch(L"1");
  Trace(L"50%s %n \u65e5");
  EXPECT_THAT(TraceTexts(), ElementsAre(L"KZCEF Trace: 50%s %n \u65e5"));
}

TEST(Tracing, JoinsTwoTextsWithNothingBetweenThem) {
  SetSwitch(L"1");
  Trace2("first", "second", 1);
  Trace2("first", CefString());
  Trace2(CefString(), "second");
  Trace2(CefString(), CefString());
  EXPECT_THAT(TraceTexts(), ElementsAre(L"KZCEF Trace: firstsecond", L"KZCEF Trace: first",
                                        L"KZCEF Trace: second", L"KZCEF Trace: "));
}

TEST(Tracing, TakesTheFirstLinesOfSeveralThreadsAtOnce) {
  SetSwitch(L"1");
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([] { Trace(L"line"); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_THAT(TraceLines(), SizeIs(8));
}

}  // namespace
}  // namespace kzcef
