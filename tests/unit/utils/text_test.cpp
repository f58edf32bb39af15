// Splitting, trimming, replacing, and numbers at the beginning of a text.

#include "utils/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace kzcef {
namespace {

using ::testing::ElementsAre;

TEST(SplitAt, KeepsEmptyPieces) {
  EXPECT_THAT(SplitAt("a::b:", ':'), ElementsAre("a", "", "b", ""));
}

TEST(SplitAt, AnswersOnePieceForATextWithoutSeparators) {
  EXPECT_THAT(SplitAt("whole", ':'), ElementsAre("whole"));
  EXPECT_THAT(SplitAt("", ':'), ElementsAre(""));
}

TEST(Trim, RemovesEveryKindOfBlankAtBothEndsOnly) {
  EXPECT_EQ(Trim(" \n\r\t\f\va b\v\f\t\r\n "), "a b");
}

TEST(Trim, LeavesNothingOfBlanksAndTakesNothingElse) {
  EXPECT_EQ(Trim(" \t\n"), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim(std::string("\0x", 2)), std::string("\0x", 2));
}

TEST(ReplaceAll, ContinuesBehindWhatItInserted) {
  EXPECT_EQ(ReplaceAll("a/b/", "/", "//"), "a//b//");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
}

TEST(ReplaceAll, ReplacesNothingForAnEmptySearchText) {
  EXPECT_EQ(ReplaceAll("text", "", "x"), "text");
}

int ReadInteger(std::u16string_view text) {
  return LeadingInteger(text);
}

TEST(LeadingInteger, ReadsDigitsUpToTheFirstOtherCharacter) {
  EXPECT_EQ(ReadInteger(u"1abc"), 1);
  EXPECT_EQ(ReadInteger(u"012 3"), 12);
  EXPECT_EQ(ReadInteger(u"1.9"), 1);
}

TEST(LeadingInteger, SkipsBlanksAndTakesOneSign) {
  EXPECT_EQ(ReadInteger(u" \t\r\n\v\f7"), 7);
  EXPECT_EQ(ReadInteger(u"-7"), -7);
  EXPECT_EQ(ReadInteger(u"+7"), 7);
  EXPECT_EQ(ReadInteger(u"+-7"), 0);
}

TEST(LeadingInteger, IsZeroWithoutDigits) {
  EXPECT_EQ(ReadInteger(u""), 0);
  EXPECT_EQ(ReadInteger(u"yes"), 0);
  EXPECT_EQ(ReadInteger(u"-"), 0);
}

TEST(LeadingInteger, StopsAtTheEndsOfTheRangeInsteadOfWrappingAround) {
  EXPECT_EQ(ReadInteger(u"4294967297"), std::numeric_limits<int>::max());
  EXPECT_EQ(ReadInteger(u"-99999999999999999999"), std::numeric_limits<int>::min());
  EXPECT_EQ(ReadInteger(u"-2147483648"), std::numeric_limits<int>::min());
}

}  // namespace
}  // namespace kzcef
