// The text of a cookie, the list of them that hosts get, and the language found on the way.
#include "bridge/cookie_list.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/cookie_language.h"
#include "bridge/cookie_text.h"
#include "unit/bridge/cookie_test.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using testing::MakeCookie;
using testing::TakeTexts;
using testing::TextOfCookie;

std::wstring Text(const CefCookie& cookie) {
  return std::wstring(ViewOf(CookieText(cookie).get()));
}

UniqueBstr Bstr(const std::wstring& text) {
  return UniqueBstr(NewBstr(text));
}

std::vector<UniqueBstr> Bstrs(const std::vector<std::wstring>& texts) {
  std::vector<UniqueBstr> bstrs;
  for (const std::wstring& text : texts) {
    bstrs.push_back(Bstr(text));
  }
  return bstrs;
}

TEST(CookieText, HasDomainNameAndValueInThisOrder) {
  CefCookie cookie;
  CefString(&cookie.value) = "de";
  CefString(&cookie.name) = "lorvlang";
  CefString(&cookie.path) = "/somewhere";
  CefString(&cookie.domain) = ".intranet.test";
  cookie.secure = 1;
  cookie.httponly = 1;
  cookie.has_expires = 1;
  EXPECT_EQ(Text(cookie),
            L"{\"domain\":\".intranet.test\",\"name\":\"lorvlang\",\"value\":\"de\"}");
}

TEST(CookieText, HasEmptyValuesForMissingTexts) {
  EXPECT_EQ(Text(CefCookie()), L"{\"domain\":\"\",\"name\":\"\",\"value\":\"\"}");
}

// Kept deliberately: hosts take these texts apart by the same splitting.
TEST(CookieText, EscapesNothing) {
  EXPECT_EQ(Text(MakeCookie(L"n", L"a\"b", L"d")),
            L"{\"domain\":\"d\",\"name\":\"n\",\"value\":\"a\"b\"}");
  EXPECT_EQ(Text(MakeCookie(L"\\", L"\t\n\x01\u00e4\U0001F36A", L"{,}")),
            L"{\"domain\":\"{,}\",\"name\":\"\\\",\"value\":\"\t\n\x01\u00e4\U0001F36A\"}");
}

TEST(CookieText, KeepsEmbeddedNulls) {
  const std::wstring value(L"a\0b", 3);
  EXPECT_EQ(Text(MakeCookie(L"n", value, L"d")),
            L"{\"domain\":\"d\",\"name\":\"n\",\"value\":\"" + value + L"\"}");
}

TEST(CookieList, IsEmptyWithoutTexts) {
  EXPECT_EQ(CookieList({}).vt, VT_EMPTY);
  EXPECT_EQ(NoCookies().vt, VT_EMPTY);
}

TEST(CookieList, HasTheTextsInTheirOrder) {
  EXPECT_THAT(TakeTexts(CookieList(Bstrs({L"b", L"", L"a", L"b"}))),
              ElementsAre(L"b", L"", L"a", L"b"));
}

TEST(CookieList, TellsTheLanguageOfTheLastLanguageCookie) {
  EXPECT_EQ(CookieLanguage(), L"");
  const auto texts = std::vector{TextOfCookie(L"lorvlang", L"de"), TextOfCookie(L"other", L"x"),
                                 TextOfCookie(L"lorvlang", L"fr")};
  EXPECT_EQ(TakeTexts(CookieList(Bstrs(texts))), texts);
  EXPECT_EQ(CookieLanguage(), L"fr");
  TakeTexts(CookieList(Bstrs({TextOfCookie(L"other", L"x")})));
  EXPECT_EQ(CookieLanguage(), L"fr");
}

TEST(CookieList, TakesNoOtherCookieForTheLanguageCookie) {
  SetCookieLanguage(L"before");
  TakeTexts(CookieList(
      Bstrs({TextOfCookie(L"other", L"lorvlang"), TextOfCookie(L"LORVLANG", L"de"),
             TextOfCookie(L"lorvlang2", L"de"), TextOfCookie(L"n", L"v", L"lorvlang")})));
  EXPECT_EQ(CookieLanguage(), L"before");
}

TEST(CookieList, TakesAnEmptyLanguage) {
  SetCookieLanguage(L"before");
  TakeTexts(CookieList(Bstrs({TextOfCookie(L"lorvlang", L"")})));
  EXPECT_EQ(CookieLanguage(), L"");
}

// What the bridge's reads throw, word for word.
TEST(CookieList, RaisesTheErrorOfAMissingMember) {
  SetCookieLanguage(L"before");
  // The comma behind the quoted part of the name ends it early, and swallows the key of the value.
  const auto torn = TextOfCookie(L"a\"b,c", L"lorvlang");
  try {
    TakeTexts(CookieList(Bstrs({TextOfCookie(L"lorvlang", L"it"), torn})));
    FAIL() << "no error";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "invalid map<K, T> key");
  }
  EXPECT_EQ(CookieLanguage(), L"it");
  EXPECT_THROW(CaptureLanguageOf(L"lorvlang"), std::out_of_range);
  EXPECT_THROW(CaptureLanguageOf(L"{\"value\":\"lorvlang\"}"), std::out_of_range);
  EXPECT_THROW(CaptureLanguageOf(L"{\"name\":\"lorvlang\"}"), std::out_of_range);
}

TEST(CookieList, LooksIntoNoTextThatDoesNotMentionTheCookie) {
  EXPECT_NO_THROW(CaptureLanguageOf(L"no members"));
  EXPECT_NO_THROW(CaptureLanguageOf(L""));
}

}  // namespace
}  // namespace kzcef
