#include "json_text.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(JsonTextTest, ReadsAllTypes) {
  const auto json =
      ParseJson(R"({"n":null,"b":true,"i":-7,"d":1.5,"s":"x","l":[1,[]],"o":{}})", false);
  ASSERT_TRUE(json);
  EXPECT_TRUE((*json)["n"].is_null());
  EXPECT_EQ((*json)["i"], -7);
  EXPECT_EQ((*json)["d"], 1.5);
  EXPECT_EQ((*json)["s"], "x");
  EXPECT_EQ((*json)["l"].size(), 2u);
  EXPECT_TRUE(ParseJson(" 5 ", false));
}

TEST(JsonTextTest, OfRepeatedKeysTheLastCounts) {
  EXPECT_EQ((*ParseJson(R"({"a":[1],"a":2})", false))["a"], 2);
}

TEST(JsonTextTest, SaysWhereTheTextIsWrong) {
  std::string error;
  EXPECT_FALSE(ParseJson("[1,\n x]", false, &error));
  EXPECT_EQ(error, "Line: 2, column: 2, Syntax error.");
  EXPECT_FALSE(ParseJson("1e999", false, &error));
  EXPECT_EQ(error, "Line: 1, column: 5, Number cannot be represented.");
}

TEST(JsonTextTest, RefusesWhatIsNotJson) {
  for (const char* text : {"", " ", "{", "[", "[1,]", "{\"a\":1,}", "{a:1}", "'x'", "[1 2]", "01",
                           "\"\x01\"", "\"\xFF\"", "nul", "1 2", "/**/1", "\"\\x\"", "NaN"}) {
    EXPECT_FALSE(ParseJson(text, false)) << text;
  }
}

TEST(JsonTextTest, AllowsOneTrailingCommaWhereAsked) {
  EXPECT_EQ(*ParseJson("[1, ]", true), nlohmann::json::array({1}));
  EXPECT_EQ(*ParseJson(R"({"a":[1,],})", true), nlohmann::json({{"a", {1}}}));
  EXPECT_EQ(*ParseJson(R"(["a,]",])", true), nlohmann::json::array({"a,]"}));
  EXPECT_EQ(*ParseJson(R"(["\",]",])", true), nlohmann::json::array({"\",]"}));
  for (const char* text : {"[,]", "[1,,]", "{,}", "{\"a\":,}", "[1],"}) {
    EXPECT_FALSE(ParseJson(text, true)) << text;
  }
}

TEST(JsonTextTest, RefusesDeepNesting) {
  EXPECT_TRUE(ParseJson(std::string(200, '[') + std::string(200, ']'), false));
  std::string error;
  EXPECT_FALSE(ParseJson(std::string(201, '[') + std::string(201, ']'), false, &error));
  EXPECT_NE(error.find("Too much nesting."), std::string::npos);
  EXPECT_FALSE(ParseJson(std::string(1'000'000, '['), false));
}

TEST(JsonTextTest, QuotesWhatScriptCouldMisread) {
  EXPECT_EQ(QuoteJson("a\"b\\c\n<x>"), "\"a\\\"b\\\\c\\n\\u003Cx>\"");
  EXPECT_EQ(QuoteJson("\xE2\x80\xA8\xE2\x80\xA9"), "\"\\u2028\\u2029\"");
  EXPECT_EQ(QuoteJson("\xFF"), "\"\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace cefedition
