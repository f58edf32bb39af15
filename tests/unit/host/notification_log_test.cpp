// The sample host's log: numbers, searches, and the lines for file and console.

#include "portable/notification_log.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace kzhost {
namespace {

NotificationLog::File NoFile() {
  return {nullptr, &std::fclose};
}

Notification Make(const std::string& browser, const std::string& name, Json arguments) {
  Notification notification;
  notification.browser = browser;
  notification.name = name;
  notification.arguments = std::move(arguments);
  return notification;
}

Notification LoadEnd(const std::string& browser, int status) {
  return Make(browser, "LoadEndNotify", {{"httpStatus", status}});
}

std::vector<std::string> LinesOf(std::FILE* file) {
  std::rewind(file);
  std::string text;
  for (int character = std::fgetc(file); character != EOF; character = std::fgetc(file)) {
    text += static_cast<char>(character);
  }
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

TEST(NotificationLog, NumbersInTheOrderOfArrival) {
  NotificationLog log(NoFile(), nullptr);
  log.Add(LoadEnd("b1", 200));
  log.Add(LoadEnd("b2", 404));
  EXPECT_EQ(log.Find(0, "b1", "LoadEndNotify", Json::object())->sequence, 1u);
  EXPECT_EQ(log.Find(0, "b2", "LoadEndNotify", Json::object())->sequence, 2u);
  EXPECT_EQ(log.NextSequence(), 3u);
}

TEST(NotificationLog, FindsByBrowserNameAndConditionsFromANumberOn) {
  NotificationLog log(NoFile(), nullptr);
  log.Add(LoadEnd("b1", 200));
  log.Add(LoadEnd("b1", 404));
  log.Add(LoadEnd("b1", 200));
  EXPECT_EQ(log.Find(2, "b1", "LoadEndNotify", {{"httpStatus", 200}})->sequence, 3u);
  EXPECT_FALSE(log.Find(3, "b1", "LoadEndNotify", {{"httpStatus", 404}}));
  EXPECT_FALSE(log.Find(0, "b2", "LoadEndNotify", Json::object()));
  EXPECT_FALSE(log.Find(0, "b1", "LoadStartNotify", Json::object()));
}

TEST(NotificationLog, AfterGivesOneBrowsersOwnOnly) {
  NotificationLog log(NoFile(), nullptr);
  log.Add(LoadEnd("b1", 200));
  log.Add(LoadEnd("b2", 404));
  log.Add(LoadEnd("b1", 500));
  ASSERT_EQ(log.After(0, "b1").size(), 2u);
  ASSERT_EQ(log.After(2, "b1").size(), 1u);
  EXPECT_EQ(log.After(2, "b1")[0].arguments["httpStatus"], 500);
}

TEST(NotificationLog, KeepsALimitedNumber) {
  NotificationLog log(NoFile(), nullptr);
  for (size_t i = 0; i < NotificationLog::kKept + 1; ++i) {
    log.Add(LoadEnd("b1", 200));
  }
  EXPECT_EQ(log.Find(0, "b1", "LoadEndNotify", Json::object())->sequence, 2u);
  EXPECT_EQ(log.After(0, "b1").size(), NotificationLog::kKept);
}

TEST(NotificationLog, WritesEachLineAtOnce) {
  std::FILE* file = std::tmpfile();
  ASSERT_TRUE(file);
  NotificationLog log(NotificationLog::File(file, &std::fclose), nullptr);
  log.Add(LoadEnd("b1", 200));
  EXPECT_EQ(LinesOf(file).size(), 1u);
  log.AddRecord({{"step", 3}, {"do", "load"}});
  const auto lines = LinesOf(file);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(Json::parse(lines[0])["notification"], "LoadEndNotify");
  EXPECT_EQ(lines[1], R"({"seq":2,"step":3,"do":"load"})");
}

TEST(NotificationLog, PrintsPlainLinesToTheConsole) {
  std::FILE* console = std::tmpfile();
  ASSERT_TRUE(console);
  const NotificationLog::File owner(console, &std::fclose);
  NotificationLog log(NoFile(), console);
  log.Add(LoadEnd("b1", 200));
  EXPECT_EQ(LinesOf(console), std::vector<std::string>{"b1 LoadEndNotify httpStatus=200"});
}

TEST(NotificationLog, TellsItsListenerWithoutHoldingTheLock) {
  NotificationLog log(NoFile(), nullptr);
  std::vector<std::uint64_t> heard;
  log.SetListener([&](const Notification& notification) {
    heard.push_back(notification.sequence);
    EXPECT_EQ(log.NextSequence(), notification.sequence + 1);
  });
  log.Add(LoadEnd("b1", 200));
  log.Add(LoadEnd("b1", 200));
  EXPECT_EQ(heard, (std::vector<std::uint64_t>{1, 2}));
}

TEST(NotificationLog, ThreadsDoNotMixLinesOrNumbers) {
  constexpr int kThreads = 4;
  constexpr int kEach = 200;
  std::FILE* file = std::tmpfile();
  ASSERT_TRUE(file);
  NotificationLog log(NotificationLog::File(file, &std::fclose), nullptr);
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
      threads.emplace_back([&log, thread] {
        for (int i = 0; i < kEach; ++i) {
          log.Add(LoadEnd("b" + std::to_string(thread), i));
        }
      });
    }
  }
  const auto lines = LinesOf(file);
  ASSERT_EQ(lines.size(), static_cast<size_t>(kThreads * kEach));
  for (size_t i = 0; i < lines.size(); ++i) {
    ASSERT_EQ(Json::parse(lines[i])["seq"], i + 1);
  }
}

}  // namespace
}  // namespace kzhost
