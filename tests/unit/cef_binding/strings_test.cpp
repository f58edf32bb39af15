// The texts of the API and the structures that hold them. They are this side's own: none of this
// needs an engine.
#include <gtest/gtest.h>

#include <string>

#include "include/cef_base.h"

namespace {

TEST(StringTest, ConvertsBetweenAllEncodings) {
  const CefString text(u"aä\xD83D\xDE00");
  EXPECT_EQ(text.ToString(), "a\xC3\xA4\xF0\x9F\x98\x80");
  EXPECT_EQ(text.ToWString(), L"aä\xD83D\xDE00");
  EXPECT_EQ(CefString("a\xC3\xA4\xF0\x9F\x98\x80"), text);
  EXPECT_EQ(CefString(L"aä\xD83D\xDE00"), text);
  EXPECT_EQ(CefStringUTF8(u"ä").length(), 2u);
  EXPECT_EQ(CefStringWide("\xC3\xA4").ToString16(), u"ä");
}

TEST(StringTest, InvalidTextComesOutReplaced) {
  EXPECT_EQ(CefString("a\xFF"
                      "b")
                .ToString16(),
            u"a\xFFFD"
            u"b");
  EXPECT_EQ(CefString(std::u16string{0xD800}).ToString(), "\xEF\xBF\xBD");
  CefString text;
  EXPECT_FALSE(text.FromString(std::string("\xFF")));
}

TEST(StringTest, EmptyAndNullAreTheSame) {
  const CefString never_set;
  EXPECT_EQ(never_set.c_str(), nullptr);
  EXPECT_TRUE(never_set.empty());
  EXPECT_EQ(never_set, CefString(""));
  EXPECT_EQ(CefString(static_cast<const char*>(nullptr)), never_set);
  CefString text("x");
  text = "";
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text.ToWString(), L"");
  EXPECT_LT(never_set, CefString("a"));
}

TEST(StringTest, KeepsNullCharactersWithALength) {
  EXPECT_EQ(CefString(std::string("a\0b", 3)).length(), 3u);
  EXPECT_EQ(CefString("abc", 2).ToString(), "ab");
}

TEST(StringTest, ComparesByCodeUnits) {
  EXPECT_LT(CefString("a"), CefString("b"));
  EXPECT_LT(CefString("a"), CefString("aa"));
  EXPECT_GT(CefString(u"\xFFFD"), CefString(u"\xD83D\xDE00"));
}

TEST(StringTest, AttachedTextBelongsToTheOther) {
  cef_string_t data = {};
  CefString(&data).FromString(std::string("first"));
  {
    CefString view(&data);
    EXPECT_FALSE(view.IsOwner());
    view = "second";
  }
  EXPECT_EQ(CefString(&data).ToString(), "second");
  cef_string_clear(&data);
  EXPECT_EQ(data.str, nullptr);
}

TEST(StringTest, AssigningItselfChangesNothing) {
  CefString text("same");
  const CefString& alias = text;
  text = alias;
  EXPECT_EQ(text.ToString(), "same");
}

TEST(StringTest, HoldsHugeTexts) {
  const std::string huge(8'000'000, 'h');
  EXPECT_EQ(CefString(huge).ToString(), huge);
}

TEST(StructTest, CopiesTextsDeeply) {
  CefSettings copy;
  {
    CefSettings settings;
    CefString(&settings.log_file) = "a.log";
    settings.remote_debugging_port = 5;
    copy = settings;
    CefString(&settings.log_file) = "b.log";
  }
  EXPECT_EQ(CefString(&copy.log_file).ToString(), "a.log");
  EXPECT_EQ(copy.remote_debugging_port, 5);
  EXPECT_EQ(copy.size, sizeof(cef_settings_t));
}

TEST(StructTest, KeepsItsOwnSizeMember) {
  cef_settings_t raw = {};
  raw.size = 1;
  EXPECT_EQ(CefSettings(raw).size, sizeof(cef_settings_t));
}

TEST(StructTest, AttachAndDetachMoveTexts) {
  cef_cookie_t raw = {};
  {
    CefCookie cookie;
    CefString(&cookie.name) = "n";
    cookie.DetachTo(raw);
    EXPECT_EQ(cookie.name.str, nullptr);
  }
  {
    CefCookie view;
    view.AttachTo(raw);
    EXPECT_EQ(CefString(&view.name).ToString(), "n");
  }
  EXPECT_EQ(CefString(&raw.name).ToString(), "n");
  cef_string_clear(&raw.name);
}

TEST(StructTest, WindowInfoIsAVisibleChild) {
  CefWindowInfo info;
  info.SetAsChild(reinterpret_cast<HWND>(5), CefRect(1, 2, 3, 4));
  EXPECT_EQ(info.style, static_cast<DWORD>(WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS |
                                           WS_TABSTOP | WS_VISIBLE));
  EXPECT_EQ(info.bounds.width, 3);
  EXPECT_EQ(info.parent_window, reinterpret_cast<HWND>(5));
}

}  // namespace
