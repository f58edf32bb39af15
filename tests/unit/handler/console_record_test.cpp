// The form of one record of the console log.

#include "handler/console_record.h"

#include <gtest/gtest.h>

namespace kzcef {
namespace {

// What follows the level in a record of "m" from "s" at line 7.
constexpr const char* kRest = "Message: m\r\nSource: s\r\nLine: 7\r\n-----------------------\r\n";

std::string RecordOfLevel(int level) {
  return ConsoleRecord(level, "m", "s", 7);
}

TEST(ConsoleRecordTest, NamesTheFourLevelsThatHaveNames) {
  EXPECT_EQ(RecordOfLevel(1), std::string("Level: Debug\r\n") + kRest);
  EXPECT_EQ(RecordOfLevel(2), std::string("Level: Info\r\n") + kRest);
  EXPECT_EQ(RecordOfLevel(3), std::string("Level: Warn\r\n") + kRest);
  EXPECT_EQ(RecordOfLevel(4), std::string("Level: Error\r\n") + kRest);
}

TEST(ConsoleRecordTest, LeavesTheFirstLineOpenForALevelWithoutAName) {
  for (const int level : {0, 5, 99, -1}) {
    EXPECT_EQ(RecordOfLevel(level), std::string("Level: ") + kRest) << level;
  }
}

TEST(ConsoleRecordTest, TakesTextsAsTheyAre) {
  EXPECT_EQ(ConsoleRecord(2, "a\nb \xC3\xA4 %s", "", -1),
            "Level: Info\r\nMessage: a\nb \xC3\xA4 %s\r\nSource: \r\nLine: -1\r\n"
            "-----------------------\r\n");
}

TEST(ConsoleRecordTest, TakesLongTextsWhole) {
  const std::string message(100'000, 'x');
  EXPECT_NE(ConsoleRecord(2, message, "s", 1).find("Message: " + message + "\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace kzcef
