#include "devtools/cookie_rules.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "devtools/kept_cookies.h"

namespace cefedition {
namespace {

Json Cookie(const std::string& domain, const std::string& path, bool secure = false) {
  return {{"name", "n"},  {"value", "v"},     {"domain", domain},
          {"path", path}, {"secure", secure}, {"session", true}};
}

bool IsSent(const Json& cookie, const std::string& url) {
  return IsSentTo(cookie, *ParseUrl(url));
}

CefCookie WithDomain(const std::string& domain) {
  CefCookie cookie;
  CefString(&cookie.name) = "n";
  CefString(&cookie.domain) = domain;
  return cookie;
}

/// The domain under which `url` stores a cookie of `domain`; "(refused)" when it may not.
std::string StoredDomain(const std::string& url, const std::string& domain) {
  const std::optional<Json> stored = CookieToStore(*ParseUrl(url), WithDomain(domain));
  return stored ? (*stored)["domain"].get<std::string>() : "(refused)";
}

std::string StoredPath(const std::string& url, const std::string& path) {
  CefCookie cookie = WithDomain({});
  CefString(&cookie.path) = path;
  const std::optional<Json> stored = CookieToStore(*ParseUrl(url), cookie);
  return stored ? (*stored)["path"].get<std::string>() : "(refused)";
}

TEST(CookieRules, HostCookiesGoToTheirHostOnly) {
  EXPECT_TRUE(IsSent(Cookie("a.test", "/"), "http://A.test/"));
  EXPECT_FALSE(IsSent(Cookie("a.test", "/"), "http://b.a.test/"));
  EXPECT_FALSE(IsSent(Cookie("b.a.test", "/"), "http://a.test/"));
}

TEST(CookieRules, DomainCookiesGoBelowTheirDomain) {
  EXPECT_TRUE(IsSent(Cookie(".a.test", "/"), "http://a.test/"));
  EXPECT_TRUE(IsSent(Cookie(".a.test", "/"), "http://c.b.a.test:81/"));
  EXPECT_FALSE(IsSent(Cookie(".a.test", "/"), "http://ba.test/"));
  EXPECT_FALSE(IsSent(Cookie(".a.test", "/"), "http://test/"));
}

TEST(CookieRules, PathsMatchByWholeSegments) {
  EXPECT_TRUE(IsSent(Cookie("a.test", "/x"), "http://a.test/x"));
  EXPECT_TRUE(IsSent(Cookie("a.test", "/x"), "http://a.test/x/y?z"));
  EXPECT_TRUE(IsSent(Cookie("a.test", "/x/"), "http://a.test/x/y"));
  EXPECT_FALSE(IsSent(Cookie("a.test", "/x"), "http://a.test/xy"));
  EXPECT_FALSE(IsSent(Cookie("a.test", "/x/"), "http://a.test/x"));
  EXPECT_FALSE(IsSent(Cookie("a.test", "/X"), "http://a.test/x"));
}

TEST(CookieRules, SecureCookiesGoToTrustedUrlsOnly) {
  EXPECT_TRUE(IsSent(Cookie("a.test", "/", true), "https://a.test/"));
  EXPECT_TRUE(IsSent(Cookie("a.test", "/", true), "wss://a.test/"));
  EXPECT_FALSE(IsSent(Cookie("a.test", "/", true), "http://a.test/"));
  EXPECT_TRUE(IsSent(Cookie("127.0.0.1", "/", true), "http://127.0.0.1/"));
  EXPECT_TRUE(IsSent(Cookie("x.localhost", "/", true), "http://x.localhost/"));
  EXPECT_TRUE(IsSent(Cookie("[::1]", "/", true), "http://[::1]/"));
  EXPECT_FALSE(IsSent(Cookie("127.a.test", "/", true), "http://127.a.test/"));
}

TEST(CookieRules, OnlyWebSchemesHaveCookiesAndPartitionsAreLeftOut) {
  EXPECT_FALSE(IsSent(Cookie("a.test", "/"), "ftp://a.test/"));
  EXPECT_TRUE(IsSent(Cookie("a.test", "/"), "ws://a.test/"));
  Json partitioned = Cookie("a.test", "/");
  partitioned["partitionKey"] = {{"topLevelSite", "http://b.test"}};
  EXPECT_FALSE(IsSent(partitioned, "http://a.test/"));
}

TEST(CookieRules, DomainsAreStoredWithADotAndOnlyForHostsBelowThem) {
  EXPECT_EQ(StoredDomain("http://b.a.test/", ""), "b.a.test");
  EXPECT_EQ(StoredDomain("http://b.a.test/", "a.test"), ".a.test");
  EXPECT_EQ(StoredDomain("http://b.a.test/", ".A.Test"), ".a.test");
  EXPECT_EQ(StoredDomain("http://a.test/", "a.test"), ".a.test");
  EXPECT_EQ(StoredDomain("http://a.test/", "b.a.test"), "(refused)");
  EXPECT_EQ(StoredDomain("http://a.test/", "b.test"), "(refused)");
  EXPECT_EQ(StoredDomain("http://ba.test/", "a.test"), "(refused)");
}

TEST(CookieRules, AddressesAndSingleLabelsAreHostsOnly) {
  EXPECT_EQ(StoredDomain("http://127.0.0.1/", "127.0.0.1"), "127.0.0.1");
  EXPECT_EQ(StoredDomain("http://127.0.0.1/", ".0.0.1"), "(refused)");
  EXPECT_EQ(StoredDomain("http://intranet/", ".intranet"), "intranet");
  EXPECT_EQ(StoredDomain("http://a.intranet/", ".intranet"), "(refused)");
}

TEST(CookieRules, PathDefaultsToTheUrlsFolder) {
  EXPECT_EQ(StoredPath("http://a.test/x/y", ""), "/x");
  EXPECT_EQ(StoredPath("http://a.test/x/", ""), "/x");
  EXPECT_EQ(StoredPath("http://a.test/x", ""), "/");
  EXPECT_EQ(StoredPath("http://a.test/", "/other"), "/other");
  EXPECT_EQ(StoredPath("http://a.test/", "other"), "(refused)");
}

TEST(CookieRules, SecureCookiesComeFromTrustedUrls) {
  CefCookie cookie = WithDomain({});
  cookie.secure = true;
  EXPECT_TRUE(CookieToStore(*ParseUrl("https://a.test/"), cookie));
  EXPECT_TRUE(CookieToStore(*ParseUrl("http://127.0.0.1/"), cookie));
  EXPECT_FALSE(CookieToStore(*ParseUrl("http://a.test/"), cookie));
  cookie.same_site = CEF_COOKIE_SAME_SITE_NO_RESTRICTION;
  EXPECT_TRUE(CookieToStore(*ParseUrl("https://a.test/"), cookie));
  cookie.secure = false;
  EXPECT_FALSE(CookieToStore(*ParseUrl("https://a.test/"), cookie));
  EXPECT_FALSE(CookieToStore(*ParseUrl("about:blank"), WithDomain({})));
}

TEST(CookieRules, EveryFieldIsCarriedBothWays) {
  CefCookie cookie = WithDomain("a.test");
  CefString(&cookie.value) = "v\"\xc3\xbc";
  CefString(&cookie.path) = "/p";
  cookie.secure = true;
  cookie.httponly = true;
  cookie.has_expires = true;
  cookie.expires.val = (11644473600LL + 4102444800LL) * 1000000;
  cookie.same_site = CEF_COOKIE_SAME_SITE_STRICT_MODE;
  cookie.priority = CEF_COOKIE_PRIORITY_HIGH;
  const std::optional<Json> stored = CookieToStore(*ParseUrl("https://a.test/"), cookie);
  ASSERT_TRUE(stored);
  EXPECT_EQ(*stored, (Json{{"name", "n"},
                           {"value", "v\"\xc3\xbc"},
                           {"domain", ".a.test"},
                           {"path", "/p"},
                           {"secure", true},
                           {"httpOnly", true},
                           {"expires", 4102444800.0},
                           {"sameSite", "Strict"},
                           {"priority", "High"},
                           {"sourceScheme", "Secure"}}));
  const CefCookie read = ToCefCookie(*stored);
  EXPECT_EQ(CefString(&read.name).ToString(), "n");
  EXPECT_EQ(CefString(&read.value).ToString(), "v\"\xc3\xbc");
  EXPECT_EQ(CefString(&read.domain).ToString(), ".a.test");
  EXPECT_EQ(CefString(&read.path).ToString(), "/p");
  EXPECT_TRUE(read.secure);
  EXPECT_TRUE(read.httponly);
  EXPECT_TRUE(read.has_expires);
  EXPECT_EQ(read.expires.val, cookie.expires.val);
  EXPECT_EQ(read.same_site, CEF_COOKIE_SAME_SITE_STRICT_MODE);
  EXPECT_EQ(read.priority, CEF_COOKIE_PRIORITY_HIGH);
  EXPECT_FALSE(ToCefCookie(Cookie("a.test", "/")).has_expires);
}

TEST(CookieRules, ACookieOfTheProtocolWithoutItsMembersIsSurvived) {
  EXPECT_FALSE(IsSent(Json::object(), "http://a.test/"));
  const CefCookie empty = ToCefCookie(Json());
  EXPECT_EQ(CefString(&empty.name).ToString(), "");
  EXPECT_EQ(CookieToRemove(Json::object()), (Json{{"value", "removed"}, {"expires", 1.0}}));
}

class KeptCookiesTest : public testing::Test {
 protected:
  KeptCookiesTest()
      : folder_(std::filesystem::temp_directory_path() /
                ("kept_cookies_" + std::to_string(GetCurrentProcessId()))) {
    std::filesystem::create_directories(folder_);
  }
  ~KeptCookiesTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  std::filesystem::path folder_;
};

TEST_F(KeptCookiesTest, OnlyWhatIsMissingAndStillValidIsBroughtBack) {
  Json session = Cookie("a.test", "/session");
  Json lasting = Cookie("a.test", "/lasting");
  lasting["session"] = false;
  lasting["expires"] = 4102444800.0;
  Json expired = lasting;
  expired["path"] = "/expired";
  expired["expires"] = 1000.0;
  const Json all = Json::array({session, lasting, expired});
  ASSERT_TRUE(KeepCookies(folder_.wstring(), all));
  const Json kept = ReadKeptCookies(folder_.wstring());
  EXPECT_EQ(kept, all);
  const auto paths = [](const Json& cookies) {
    std::string text;
    for (const Json& cookie : cookies) {
      text += cookie["path"].get<std::string>();
    }
    return text;
  };
  EXPECT_EQ(paths(CookiesToBringBack(kept, Json::array(), true)), "/session/lasting");
  EXPECT_EQ(paths(CookiesToBringBack(kept, Json::array(), false)), "/lasting");
  lasting["value"] = "newer";
  EXPECT_EQ(paths(CookiesToBringBack(kept, Json::array({lasting}), true)), "/session");
  EXPECT_EQ(paths(CookiesToKeep(all, true, false)), "/session");
  EXPECT_EQ(paths(CookiesToKeep(all, false, true)), "/lasting/expired");
}

TEST_F(KeptCookiesTest, NoCookiesLeaveNoFileAndABrokenFileIsNone) {
  ASSERT_TRUE(KeepCookies(folder_.wstring(), Json::array({Cookie("a.test", "/")})));
  EXPECT_FALSE(std::filesystem::is_empty(folder_));
  ASSERT_TRUE(KeepCookies(folder_.wstring(), Json::array()));
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
  EXPECT_EQ(ReadKeptCookies(folder_.wstring()), Json::array());
  for (const char* text : {"", "[{\"name\":", "{\"name\":1}", "7"}) {
    std::ofstream(folder_ / L"EditionCookies.json") << text;
    EXPECT_EQ(ReadKeptCookies(folder_.wstring()), Json::array()) << text;
  }
  EXPECT_EQ(CookiesToBringBack(Json::array({1, "x", nullptr}), Json::array(), true), Json::array());
}

}  // namespace
}  // namespace cefedition
