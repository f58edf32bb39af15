#include "include/cef_parser.h"

#include <gtest/gtest.h>

namespace {

std::string Text(const cef_string_t& text) {
  return CefString(&text).ToString();
}

TEST(ParserTest, ParseUrlFillsAllParts) {
  CefURLParts parts;
  ASSERT_TRUE(CefParseURL("HTTPS://me:pw@Host:81/p/a?q=1#f", parts));
  EXPECT_EQ(Text(parts.spec), "https://me:pw@host:81/p/a?q=1#f");
  EXPECT_EQ(Text(parts.scheme), "https");
  EXPECT_EQ(Text(parts.username), "me");
  EXPECT_EQ(Text(parts.password), "pw");
  EXPECT_EQ(Text(parts.host), "host");
  EXPECT_EQ(Text(parts.port), "81");
  EXPECT_EQ(Text(parts.origin), "https://host:81/");
  EXPECT_EQ(Text(parts.path), "/p/a");
  EXPECT_EQ(Text(parts.query), "q=1");
  EXPECT_EQ(Text(parts.fragment), "f");
}

TEST(ParserTest, ParseUrlLeavesNothingOfAnEarlierUrl) {
  CefURLParts parts;
  ASSERT_TRUE(CefParseURL("http://host:81/p?q#f", parts));
  ASSERT_TRUE(CefParseURL("about:blank", parts));
  EXPECT_EQ(Text(parts.spec), "about:blank");
  EXPECT_EQ(Text(parts.host), "");
  EXPECT_EQ(Text(parts.origin), "");
  EXPECT_EQ(Text(parts.query), "");
}

TEST(ParserTest, ParseUrlRefusesBadTexts) {
  CefURLParts parts;
  EXPECT_FALSE(CefParseURL("", parts));
  EXPECT_FALSE(CefParseURL("no url", parts));
}

TEST(ParserTest, CreateUrlPrefersTheSpec) {
  CefURLParts parts;
  CefString url;
  EXPECT_FALSE(CefCreateURL(parts, url));
  CefString(&parts.scheme) = "http";
  CefString(&parts.path) = "/x";
  EXPECT_FALSE(CefCreateURL(parts, url));
  CefString(&parts.host) = "host";
  EXPECT_TRUE(CefCreateURL(parts, url));
  EXPECT_EQ(url.ToString(), "http://host/x");
  CefString(&parts.spec) = "https://other";
  EXPECT_TRUE(CefCreateURL(parts, url));
  EXPECT_EQ(url.ToString(), "https://other/");
}

TEST(ParserTest, ResolveUrl) {
  CefString url;
  EXPECT_TRUE(CefResolveURL("http://a/b/c", "../d", url));
  EXPECT_EQ(url.ToString(), "http://a/d");
  EXPECT_FALSE(CefResolveURL("none", "d", url));
  EXPECT_FALSE(CefResolveURL("http://a/", "", url));
}

TEST(ParserTest, SecurityDisplayShowsTheOrigin) {
  EXPECT_EQ(CefFormatUrlForSecurityDisplay("https://me@host:81/p?q").ToString(), "https://host:81");
  EXPECT_EQ(CefFormatUrlForSecurityDisplay("file:///C:/x").ToString(), "file:///C:/x");
  EXPECT_EQ(CefFormatUrlForSecurityDisplay("about:blank").ToString(), "about:blank");
  EXPECT_EQ(CefFormatUrlForSecurityDisplay("bad").ToString(), "");
}

TEST(ParserTest, MimeTypesByExtensionAndBack) {
  EXPECT_EQ(CefGetMimeType("HTML").ToString(), "text/html");
  EXPECT_EQ(CefGetMimeType("none").ToString(), "");
  std::vector<CefString> extensions;
  CefGetExtensionsForMimeType("image/jpeg", extensions);
  EXPECT_EQ(extensions, (std::vector<CefString>{"jpg", "jpeg"}));
  extensions.clear();
  CefGetExtensionsForMimeType("font/*", extensions);
  EXPECT_EQ(extensions.size(), 4u);
}

TEST(ParserTest, Base64ThroughTheApi) {
  EXPECT_EQ(CefBase64Encode("foob", 4).ToString(), "Zm9vYg==");
  EXPECT_EQ(CefBase64Encode(nullptr, 4).ToString(), "");
  CefRefPtr<CefBinaryValue> decoded = CefBase64Decode("Zm9vYg==");
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->GetSize(), 4u);
  EXPECT_FALSE(CefBase64Decode("no base64"));
  EXPECT_FALSE(CefBase64Decode(""));
}

TEST(ParserTest, UriEncodingThroughTheApi) {
  EXPECT_EQ(CefURIEncode("a b&ä", false).ToString(), "a%20b%26%C3%A4");
  EXPECT_EQ(CefURIEncode("a b", true).ToString(), "a+b");
  EXPECT_EQ(CefURIDecode("a%20%C3%A4+", true, UU_NONE).ToString(), "a%20%C3%A4+");
  const auto rule = static_cast<cef_uri_unescape_rule_t>(UU_SPACES | UU_REPLACE_PLUS_WITH_SPACE);
  EXPECT_EQ(CefURIDecode("a%20%C3%A4+%26", true, rule).ToString(), "a \xC3\xA4 %26");
}

}  // namespace
