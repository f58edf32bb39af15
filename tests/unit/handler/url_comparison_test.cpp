// Which URLs count as the same.

#include "handler/url_comparison.h"

#include <gtest/gtest.h>

#include <string_view>

namespace kzcef {
namespace {

TEST(UrlComparisonTest, LeavesOneSlashAtTheEndOutOfAccount) {
  EXPECT_TRUE(IsSameUrl("http://a.test/x", "http://a.test/x"));
  EXPECT_TRUE(IsSameUrl("http://a.test/x/", "http://a.test/x"));
  EXPECT_TRUE(IsSameUrl("http://a.test/x", "http://a.test/x/"));
  EXPECT_TRUE(IsSameUrl("http://a.test/x/", "http://a.test/x/"));
  EXPECT_TRUE(IsSameUrl("", "/"));
  EXPECT_TRUE(IsSameUrl("", ""));
}

TEST(UrlComparisonTest, TellsEverythingElseApart) {
  EXPECT_FALSE(IsSameUrl("http://a.test/x", "http://a.test/x//"));
  EXPECT_FALSE(IsSameUrl("http://a.test/x", "http://a.test/X"));
  EXPECT_FALSE(IsSameUrl("http://a.test/x", "/http://a.test/x"));
  EXPECT_FALSE(IsSameUrl("http://a.test/x?", "http://a.test/x"));
  EXPECT_FALSE(IsSameUrl("\xC3\xA4", "\xC3\xA5"));
  EXPECT_FALSE(IsSameUrl(std::string_view("a\0b", 3), std::string_view("a\0c", 3)));
}

}  // namespace
}  // namespace kzcef
