#include "devtools/download_sources.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

Json Request(const std::string& id, const std::string& url, bool navigates = true) {
  Json headers = {{"Referer", "http://a/"}};
  if (navigates) {
    headers["Upgrade-Insecure-Requests"] = "1";
  }
  return {{"requestId", id}, {"request", {{"url", url}, {"method", "POST"}, {"headers", headers}}}};
}

Json Response(const std::string& id, const std::string& url, const Json& headers) {
  Json paused = Request(id, url);
  paused["responseStatusCode"] = 200;
  paused["responseHeaders"] = headers;
  return paused;
}

TEST(DownloadSourcesTest, ResponseTellsWhatTheBeginDoesNot) {
  DownloadSources sources;
  EXPECT_TRUE(sources.OnPaused(Request("1", "http://a/file")));
  EXPECT_TRUE(sources.OnPaused(
      Response("1", "http://a/file",
               Json::array({{{"name", "content-TYPE"}, {"value", "Application/ZIP ; q=1"}},
                            {{"name", "Content-Disposition"}, {"value", "attachment"}}}))));
  const DownloadSource source = sources.Find("http://a/file");
  EXPECT_EQ(source.method, "POST");
  EXPECT_EQ(source.mime_type, "application/zip");
  EXPECT_EQ(source.content_disposition, "attachment");
  EXPECT_EQ(source.original_url, "http://a/file");
}

TEST(DownloadSourcesTest, RedirectsLeadBackToTheFirstUrl) {
  DownloadSources sources;
  sources.OnPaused(Request("1.0", "http://a/one"));
  for (int i = 1; i <= 2; ++i) {
    Json next = Request("1." + std::to_string(i), "http://a/" + std::to_string(i));
    next["redirectedRequestId"] = "1." + std::to_string(i - 1);
    sources.OnPaused(next);
  }
  EXPECT_EQ(sources.Find("http://a/2").original_url, "http://a/one");
}

TEST(DownloadSourcesTest, WhatIsSavedOnlyIsNoNavigation) {
  DownloadSources sources;
  EXPECT_FALSE(sources.OnPaused(Request("1.0", "http://a/one", false)));
  EXPECT_FALSE(sources.OnPaused(Response("1.0", "http://a/one", Json::array())));
  Json redirect = Request("1.1", "http://a/two");
  redirect["redirectedRequestId"] = "1.0";
  EXPECT_FALSE(sources.OnPaused(redirect));
  Json failed = Request("1.1", "http://a/two");
  failed["responseErrorReason"] = "Failed";
  EXPECT_FALSE(sources.OnPaused(failed));
}

TEST(DownloadSourcesTest, UnknownUrlsSpeakForThemselves) {
  const DownloadSources sources;
  EXPECT_EQ(sources.Find("blob:x").original_url, "blob:x");
  EXPECT_EQ(sources.Find("blob:x").mime_type, "");
  EXPECT_EQ(sources.Find("blob:x").method, "GET");
  EXPECT_EQ(sources.Find("data:image/PNG;base64,AA").mime_type, "image/png");
  EXPECT_EQ(sources.Find("data:,text").mime_type, "text/plain");
}

TEST(DownloadSourcesTest, OldOnesAreForgotten) {
  DownloadSources sources;
  sources.OnPaused(Request("first", "http://a/first"));
  for (int i = 0; i < 100; ++i) {
    sources.OnPaused(Request(std::to_string(i), "http://a/" + std::to_string(i)));
  }
  EXPECT_EQ(sources.Find("http://a/first").method, "GET");
  EXPECT_EQ(sources.Find("http://a/99").method, "POST");
}

TEST(DownloadSourcesTest, BrokenMessagesAreHarmless) {
  DownloadSources sources;
  sources.OnPaused(Json::object());
  sources.OnPaused(Json());
  sources.OnPaused({{"requestId", 5}, {"responseStatusCode", "x"}, {"responseHeaders", 7}});
  EXPECT_EQ(sources.Find("").url, "");
}

}  // namespace
}  // namespace cefedition
