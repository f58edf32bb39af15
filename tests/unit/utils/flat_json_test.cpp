// What the splitter of flat JSON texts makes of them, well formed or not.
#include "utils/flat_json.h"

#include <gmock/gmock.h>

#include <chrono>
#include <stdexcept>
#include <string>

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

FlatJson<char16_t> Read(std::u16string_view text) {
  return ReadFlatJson(text);
}

constexpr std::u16string_view kUnnamed = u"";

TEST(FlatJson, FindsTheMembersInOrderOfTheirNames) {
  EXPECT_THAT(Read(u"{\"name\":\"lorvlang\",\"value\":\"fr\",\"domain\":\".intranet.test\"}"),
              ElementsAre(Pair(u"domain", u".intranet.test"), Pair(u"name", u"lorvlang"),
                          Pair(u"value", u"fr")));
}

TEST(FlatJson, ReadsWideTextsToo) {
  EXPECT_THAT(ReadFlatJson(std::wstring_view(L"{\"a\":\"\u00e4\"}")),
              ElementsAre(Pair(L"a", L"\u00e4")));
}

TEST(FlatJson, HasOneUnnamedEntryForATextWithoutMembers) {
  for (const std::u16string_view text : {u"", u"{}", u"  ", u" { } ", u"{{}}}", u"\"\""}) {
    EXPECT_THAT(Read(text), ElementsAre(Pair(kUnnamed, u"")));
    EXPECT_TRUE(HasNoNamedMember(Read(text)));
  }
}

TEST(FlatJson, FindsWhatHasNoColonUnderTheEmptyName) {
  EXPECT_THAT(Read(u"no object"), ElementsAre(Pair(kUnnamed, u"no object")));
  EXPECT_THAT(Read(u"a,b , c"), ElementsAre(Pair(kUnnamed, u"c")));
  EXPECT_TRUE(HasNoNamedMember(Read(u"a,b , c")));
  EXPECT_THAT(Read(u"{\"a\":1,2}"), ElementsAre(Pair(kUnnamed, u"2"), Pair(u"a", u"1")));
  EXPECT_FALSE(HasNoNamedMember(Read(u"{\"a\":1,2}")));
}

TEST(FlatJson, TrimsTheSixKindsOfWhiteSpace) {
  EXPECT_THAT(Read(u" \n\r\t\f\v{ \n\r\t\f\v\"a\" \n\r\t\f\v: \n\r\t\f\v\"b\" \n\r\t\f\v} \n\r\t"),
              ElementsAre(Pair(u"a", u"b")));
  EXPECT_THAT(Read(u"a:\u00a0\u2003b\u3000"), ElementsAre(Pair(u"a", u"\u00a0\u2003b\u3000")));
}

TEST(FlatJson, TrimsWhiteSpaceInsideTheQuotesToo) {
  EXPECT_THAT(Read(u"{\" a \":\"\t b c \"}"), ElementsAre(Pair(u"a", u"b c")));
}

TEST(FlatJson, StripsEveryBraceAtTheEndsAndNoneInside) {
  EXPECT_THAT(Read(u"{{{\"a\":\"b\"}}"), ElementsAre(Pair(u"a", u"b")));
  EXPECT_THAT(Read(u"\"a\":\"b\""), ElementsAre(Pair(u"a", u"b")));
  EXPECT_THAT(Read(u"{\"a\":{\"b\":1}}"), ElementsAre(Pair(u"a", u"{\"b\":1")));
  // A blank between them ends the run of braces.
  EXPECT_THAT(Read(u"{ {\"a\":1} }"), ElementsAre(Pair(u"{\"a", u"1}")));
}

TEST(FlatJson, KeepsCommasInsideAQuotedValue) {
  EXPECT_THAT(Read(u"{\"a\":\"1,2,3\",\"b\":\"4\"}"),
              ElementsAre(Pair(u"a", u"1,2,3"), Pair(u"b", u"4")));
  EXPECT_THAT(Read(u"a:1 \"x,y\" 2,b:3"),
              ElementsAre(Pair(u"a", u"1 \"x,y\" 2"), Pair(u"b", u"3")));
}

TEST(FlatJson, SplitsAtCommasBehindTheFirstTwoQuotesOfAValue) {
  EXPECT_THAT(Read(u"{\"a\":\"x\"y,z\",\"b\":\"1\"}"),
              ElementsAre(Pair(u"a", u"x\"y"), Pair(u"z\",\"b", u"1")));
}

TEST(FlatJson, KeepsQuotesInsideAValueAndTakesAllAtItsEnds) {
  EXPECT_THAT(Read(u"{\"value\":\"a\"b\"}"), ElementsAre(Pair(u"value", u"a\"b")));
  EXPECT_THAT(Read(u"{\"value\":\"\"\"a\"\"}"), ElementsAre(Pair(u"value", u"a")));
  EXPECT_THAT(Read(u"{\"value\":\"a\\\"b\\\"\"}"), ElementsAre(Pair(u"value", u"a\\\"b\\")));
}

TEST(FlatJson, TakesTheRestAsTheValueWhenAQuoteIsNotClosed) {
  EXPECT_THAT(Read(u"{\"a\":\"1,b:2}"), ElementsAre(Pair(u"a", u"1,b:2")));
}

TEST(FlatJson, SplitsAtTheFirstColonOnly) {
  EXPECT_THAT(Read(u"{\"url\":\"http://a:80/\"}"), ElementsAre(Pair(u"url", u"http://a:80/")));
  // The name goes up to the next colon, whatever stands between.
  EXPECT_THAT(Read(u"{1,2,\"a\":3}"), ElementsAre(Pair(u"1,2,\"a", u"3")));
}

TEST(FlatJson, KeepsTheLastOfSeveralMembersWithOneName) {
  EXPECT_THAT(Read(u"{\"a\":1,\"a\":2, a :3}"), ElementsAre(Pair(u"a", u"3")));
}

TEST(FlatJson, HasAnEntryBehindACommaAtTheEnd) {
  EXPECT_THAT(Read(u"{\"a\":1,}"), ElementsAre(Pair(kUnnamed, u""), Pair(u"a", u"1")));
}

TEST(FlatJson, NamesTheMemberThatIsMissingAsHostsKnowIt) {
  const auto members = Read(u"{\"a\":1}");
  EXPECT_EQ(MemberText(members, std::u16string_view(u"a")), u"1");
  try {
    MemberText(members, std::u16string_view(u"A"));
    FAIL() << "no error";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "invalid map<K, T> key");
  }
}

// Searching the rest of the text again at every comma would take minutes.
TEST(FlatJson, TakesNoLongerThanTheTextIsLong) {
  constexpr std::size_t kLength = 2'000'000;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(Read(std::u16string(kLength, u',')), ElementsAre(Pair(kUnnamed, u"")));
  EXPECT_EQ(Read(std::u16string(kLength, u':')).size(), 1u);
  EXPECT_EQ(Read(std::u16string(kLength, u'"')).size(), 1u);
  EXPECT_EQ(Read(std::u16string(kLength, u'{')).size(), 1u);
  std::u16string pairs;
  while (pairs.size() < kLength) {
    pairs += u"a:\"\",";
  }
  EXPECT_EQ(Read(pairs).size(), 2u);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace kzcef
