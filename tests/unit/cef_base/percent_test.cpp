#include "percent.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(PercentTest, EncodesAllButTheUnreserved) {
  EXPECT_EQ(PercentEncode("aZ09-_.!~*'()", false), "aZ09-_.!~*'()");
  EXPECT_EQ(PercentEncode("a b/?&=+%", false), "a%20b%2F%3F%26%3D%2B%25");
  EXPECT_EQ(PercentEncode("a b", true), "a+b");
  EXPECT_EQ(PercentEncode("\xC3\xA4", false), "%C3%A4");
}

TEST(PercentTest, DecodesOnlyWhatTheRuleAllows) {
  EXPECT_EQ(PercentDecode("%41%20%2F%26%25", {}), "A%20%2F%26%25");
  EXPECT_EQ(PercentDecode("%41%20%2F%26%25", {.spaces = true}), "A %2F%26%25");
  EXPECT_EQ(PercentDecode("%41%20%2F%5C", {.path_separators = true}), "A%20/\\");
  EXPECT_EQ(PercentDecode("%26%25%2B%23%2F", {.special = true}), "&%+#%2F");
  EXPECT_EQ(PercentDecode("a+b", {.plus_to_space = true}), "a b");
}

TEST(PercentTest, DecodesWholeCharactersOnly) {
  EXPECT_EQ(PercentDecode("%C3%A4", {}), "\xC3\xA4");
  EXPECT_EQ(PercentDecode("%F0%9F%98%80", {}), "\xF0\x9F\x98\x80");
  EXPECT_EQ(PercentDecode("%C3", {}), "%C3");
  EXPECT_EQ(PercentDecode("%C3x", {}), "%C3x");
  EXPECT_EQ(PercentDecode("%FF%FE", {}), "%FF%FE");
}

TEST(PercentTest, LeavesControlsAndBrokenEscapes) {
  EXPECT_EQ(PercentDecode("%00%0A%7F", {.spaces = true, .path_separators = true, .special = true}),
            "%00%0A%7F");
  EXPECT_EQ(PercentDecode("%", {}), "%");
  EXPECT_EQ(PercentDecode("%4", {}), "%4");
  EXPECT_EQ(PercentDecode("%G1", {}), "%G1");
}

}  // namespace
}  // namespace cefedition
