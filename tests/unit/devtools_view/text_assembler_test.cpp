#include "devtools/view/text_assembler.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(TextAssembler, GivesACharacterOfTheBasicPlaneAtOnce) {
  TextAssembler text;
  EXPECT_EQ(text.Add(u'a'), "a");
  EXPECT_EQ(text.Add(u'\u00e9'), "\xC3\xA9");
  EXPECT_EQ(text.Add(u'\u20ac'), "\xE2\x82\xAC");
}

TEST(TextAssembler, JoinsASurrogatePair) {
  TextAssembler text;
  EXPECT_EQ(text.Add(0xD83D), std::nullopt);
  EXPECT_EQ(text.Add(0xDE00), "\xF0\x9F\x98\x80");
}

TEST(TextAssembler, DropsALowSurrogateAlone) {
  TextAssembler text;
  EXPECT_EQ(text.Add(0xDE00), std::nullopt);
  EXPECT_EQ(text.Add(u'x'), "x");
}

TEST(TextAssembler, DropsAHighSurrogateThatAnotherCharacterFollows) {
  TextAssembler text;
  EXPECT_EQ(text.Add(0xD83D), std::nullopt);
  EXPECT_EQ(text.Add(u'x'), "x");
  EXPECT_EQ(text.Add(0xDE00), std::nullopt) << "the earlier half must be forgotten";
}

TEST(TextAssembler, LetsTheLaterOfTwoHighSurrogatesCount) {
  TextAssembler text;
  EXPECT_EQ(text.Add(0xD800), std::nullopt);
  EXPECT_EQ(text.Add(0xDBFF), std::nullopt);
  EXPECT_EQ(text.Add(0xDFFF), "\xF4\x8F\xBF\xBF");
}

TEST(CodePointToUtf8, CoversTheEdgesOfEachLength) {
  EXPECT_EQ(CodePointToUtf8(0x7F), "\x7F");
  EXPECT_EQ(CodePointToUtf8(0x80), "\xC2\x80");
  EXPECT_EQ(CodePointToUtf8(0x7FF), "\xDF\xBF");
  EXPECT_EQ(CodePointToUtf8(0x800), "\xE0\xA0\x80");
  EXPECT_EQ(CodePointToUtf8(0xFFFF), "\xEF\xBF\xBF");
  EXPECT_EQ(CodePointToUtf8(0x10000), "\xF0\x90\x80\x80");
  EXPECT_EQ(CodePointToUtf8(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

TEST(CodePointToUtf8, RefusesWhatIsNoCharacter) {
  EXPECT_EQ(CodePointToUtf8(0xD800), "");
  EXPECT_EQ(CodePointToUtf8(0xDFFF), "");
  EXPECT_EQ(CodePointToUtf8(0x110000), "");
  EXPECT_EQ(CodePointToUtf8(0xFFFFFFFF), "");
}

}  // namespace
}  // namespace cefedition
