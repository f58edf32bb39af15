// Patterns with stars, and conditions on the arguments of notifications.

#include "portable/text_match.h"

#include <gtest/gtest.h>

#include <string>

namespace kzhost {
namespace {

TEST(MatchesText, WithoutAStarIsEquality) {
  EXPECT_TRUE(MatchesText("", ""));
  EXPECT_TRUE(MatchesText("abc", "abc"));
  EXPECT_FALSE(MatchesText("abc", "ab"));
  EXPECT_FALSE(MatchesText("ab", "abc"));
  EXPECT_FALSE(MatchesText("abc", ""));
}

TEST(MatchesText, StarStandsForAnyRun) {
  EXPECT_TRUE(MatchesText("", "*"));
  EXPECT_TRUE(MatchesText("abc", "*"));
  EXPECT_TRUE(MatchesText("abc", "a*c"));
  EXPECT_TRUE(MatchesText("ac", "a*c"));
  EXPECT_TRUE(MatchesText("http://127.0.0.1:8080/index.html", "http://*/index.html"));
  EXPECT_FALSE(MatchesText("abd", "a*c"));
  EXPECT_FALSE(MatchesText("bac", "a*c"));
}

TEST(MatchesText, StarGivesBackWhatItTookTooEarly) {
  EXPECT_TRUE(MatchesText("aXbXc", "a*Xc"));
  EXPECT_TRUE(MatchesText("abab", "*ab"));
  EXPECT_TRUE(MatchesText("mississippi", "*iss*ip*"));
  EXPECT_FALSE(MatchesText("mississippi", "*iss*ipx*"));
}

TEST(MatchesText, ManyStarsEndInReasonableTime) {
  std::string pattern;
  for (int i = 0; i < 50; ++i) {
    pattern += "*a";
  }
  EXPECT_FALSE(MatchesText(std::string(20'000, 'a'), pattern + "b"));
}

TEST(MatchesArguments, NoConditionsHold) {
  EXPECT_TRUE(MatchesArguments({{"httpStatus", 200}}, Json::object()));
}

TEST(MatchesArguments, ComparesEachKind) {
  const Json arguments = {{"httpStatus", 200}, {"IsLoading", false}, {"URL", "http://a/b"}};
  EXPECT_TRUE(MatchesArguments(arguments, {{"httpStatus", 200}, {"IsLoading", false}}));
  EXPECT_TRUE(MatchesArguments(arguments, {{"URL", "*/b"}}));
  EXPECT_FALSE(MatchesArguments(arguments, {{"httpStatus", 404}}));
  EXPECT_FALSE(MatchesArguments(arguments, {{"IsLoading", true}}));
  EXPECT_FALSE(MatchesArguments(arguments, {{"URL", "*/c"}}));
  EXPECT_FALSE(MatchesArguments(arguments, {{"httpStatus", "200"}}));
}

TEST(MatchesArguments, MissingArgumentDoesNotHold) {
  EXPECT_FALSE(MatchesArguments(Json::object(), {{"httpStatus", 200}}));
}

}  // namespace
}  // namespace kzhost
