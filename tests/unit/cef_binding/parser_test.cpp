// How the engine takes addresses apart, and its Base64.
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

TEST(ParserTest, MimeTypesByExtension) {
  EXPECT_EQ(CefGetMimeType("HTML").ToString(), "text/html");
  EXPECT_EQ(CefGetMimeType("none").ToString(), "");
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

}  // namespace
