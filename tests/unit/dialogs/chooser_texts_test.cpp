// The chooser's serial numbers and prompt.

#include "dialogs/chooser_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kzcef {
namespace {

using namespace std::string_view_literals;

TEST(SerialNumberText, IsTwoUpperCaseDigitsAByte) {
  EXPECT_EQ(SerialNumberText("\x01\xAB"sv), "01AB");
  EXPECT_EQ(SerialNumberText("\x00\xFF\x7F\x80\x9C\xDE"sv), "00FF7F809CDE");
}

TEST(SerialNumberText, IsEmptyForNoBytes) {
  EXPECT_EQ(SerialNumberText(""), "");
}

TEST(SerialNumberText, IsOfAnyLength) {
  EXPECT_EQ(SerialNumberText(std::string(100000, '\xA5')).size(), 200000u);
}

TEST(PromptText, NamesTheSite) {
  EXPECT_EQ(PromptText(L"Authenticate to %s now", L"intranet.test"),
            L"Authenticate to intranet.test now");
  EXPECT_EQ(PromptText(L"%s: choose", L"intranet.test"), L"intranet.test: choose");
}

TEST(PromptText, WritesANullSiteAsTheRuntimeDoes) {
  EXPECT_EQ(PromptText(L"to %s", nullptr), L"to (null)");
}

TEST(PromptText, TakesTheSiteAsItIs) {
  EXPECT_EQ(PromptText(L"to %s", L""), L"to ");
  EXPECT_EQ(PromptText(L"to %s!", L"%s%n%x.test"), L"to %s%n%x.test!");
}

TEST(PromptText, FillsOnePlaceOnly) {
  EXPECT_EQ(PromptText(L"100% of %d %n%s%s %", L"a"), L"100% of %d %na%s %");
  EXPECT_EQ(PromptText(L"no place", L"a"), L"no place");
  EXPECT_EQ(PromptText(L"", L"a"), L"");
  EXPECT_EQ(PromptText(L"%", L"a"), L"%");
}

}  // namespace
}  // namespace kzcef
