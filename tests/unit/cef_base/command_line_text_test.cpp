#include "command_line_text.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

using Words = std::vector<std::u16string>;

TEST(CommandLineTextTest, SplitsAtBlanks) {
  EXPECT_EQ(SplitCommandLine(u""), Words());
  EXPECT_EQ(SplitCommandLine(u"  "), Words());
  EXPECT_EQ(SplitCommandLine(u"a.exe"), (Words{u"a.exe"}));
  EXPECT_EQ(SplitCommandLine(u" a.exe \t b  c "), (Words{u"a.exe", u"b", u"c"}));
}

TEST(CommandLineTextTest, TheProgramHasQuotesButNoEscapes) {
  EXPECT_EQ(SplitCommandLine(u"\"C:\\My Folder\\\" x"), (Words{u"C:\\My Folder\\", u"x"}));
  EXPECT_EQ(SplitCommandLine(u"\"open to the end"), (Words{u"open to the end"}));
}

TEST(CommandLineTextTest, BackslashesCountOnlyBeforeQuotes) {
  EXPECT_EQ(SplitCommandLine(u"p a\\\\b"), (Words{u"p", u"a\\\\b"}));
  EXPECT_EQ(SplitCommandLine(u"p a\\\"b"), (Words{u"p", u"a\"b"}));
  EXPECT_EQ(SplitCommandLine(u"p \"a\\\\\" b"), (Words{u"p", u"a\\", u"b"}));
  EXPECT_EQ(SplitCommandLine(u"p \"a\\\\\\\" b\""), (Words{u"p", u"a\\\" b"}));
  EXPECT_EQ(SplitCommandLine(u"p \"a\"\"b\""), (Words{u"p", u"a\"b"}));
  EXPECT_EQ(SplitCommandLine(u"p \"\" x\\"), (Words{u"p", u"", u"x\\"}));
}

TEST(CommandLineTextTest, QuotingIsUndoneBySplitting) {
  for (const char16_t* word :
       {u"", u"plain", u"two words", u"tab\tbed", u"quo\"te", u"C:\\path", u"ends\\", u"ends \\\\",
        u"\\\"", u"\\\\\"x\\", u"\"", u"new\nline", u"ä"}) {
    EXPECT_EQ(SplitCommandLine(u"p " + QuoteWord(word) + u" end"), (Words{u"p", word, u"end"}));
  }
}

TEST(CommandLineTextTest, PlainWordsStayUnquoted) {
  EXPECT_EQ(QuoteWord(u"plain-word=1"), u"plain-word=1");
  EXPECT_EQ(QuoteProgram(u"C:\\a.exe"), u"C:\\a.exe");
  EXPECT_EQ(QuoteProgram(u"C:\\my dir\\a.exe"), u"\"C:\\my dir\\a.exe\"");
}

}  // namespace
}  // namespace cefedition
