#include "utf.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(UtfTest, ConvertsEveryLengthBothWays) {
  const std::string utf8 = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
  const std::u16string utf16 = u"aä€\xD83D\xDE00";
  bool valid = false;
  EXPECT_EQ(Utf8ToUtf16(utf8, &valid), utf16);
  EXPECT_TRUE(valid);
  valid = false;
  EXPECT_EQ(Utf16ToUtf8(utf16, &valid), utf8);
  EXPECT_TRUE(valid);
}

TEST(UtfTest, EmptyTextIsValid) {
  bool valid = false;
  EXPECT_TRUE(Utf8ToUtf16("", &valid).empty());
  EXPECT_TRUE(valid);
  EXPECT_TRUE(Utf16ToUtf8(u"").empty());
}

TEST(UtfTest, KeepsNullCharacters) {
  EXPECT_EQ(Utf8ToUtf16(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
}

TEST(UtfTest, ReplacesEachIllFormedSequenceOnce) {
  const struct {
    std::string_view text;
    std::u16string_view expected;
  } kCases[] = {
      {"\x80", u"\xFFFD"},                      // A continuation by itself.
      {"\xC3", u"\xFFFD"},                      // Cut off.
      {"\xE2\x82", u"\xFFFD"},                  // Cut off after two of three: one replacement.
      {"\xE2\x82z", u"\xFFFDz"},                // What follows is kept.
      {"\xC0\xAF", u"\xFFFD\xFFFD"},            // Overlong.
      {"\xE0\x80\x80", u"\xFFFD\xFFFD\xFFFD"},  // Overlong.
      {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},  // A surrogate.
      {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},  // Beyond U+10FFFF.
      {"\xFF", u"\xFFFD"},
  };
  for (const auto& test : kCases) {
    bool valid = true;
    EXPECT_EQ(Utf8ToUtf16(test.text, &valid), test.expected);
    EXPECT_FALSE(valid);
  }
}

TEST(UtfTest, ReplacesLoneSurrogates) {
  bool valid = true;
  EXPECT_EQ(Utf16ToUtf8(std::u16string{0xD83D}, &valid), "\xEF\xBF\xBD");
  EXPECT_FALSE(valid);
  EXPECT_EQ(Utf16ToUtf8(std::u16string{0xDE00, u'x'}), "\xEF\xBF\xBDx");
  EXPECT_EQ(ToWellFormed(std::u16string{u'a', 0xD83D, u'b'}),
            u"a\xFFFD"
            u"b");
}

TEST(UtfTest, ConvertsHugeTexts) {
  constexpr size_t kHuge = 10'000'000;
  const std::string huge(kHuge, 'x');  // NOLINT(bugprone-string-constructor): meant to be huge
  EXPECT_EQ(Utf16ToUtf8(Utf8ToUtf16(huge)), huge);
}

}  // namespace
}  // namespace cefedition
