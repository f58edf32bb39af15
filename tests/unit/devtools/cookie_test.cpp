#include <gmock/gmock.h>

#include <thread>

#include "devtools/engine.h"
#include "engine_fixture.h"
#include "include/cef_cookie.h"
#include "include/cef_task.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

/// Writes down what it visits, and that it was let go.
class Visitor : public CefCookieVisitor {
 public:
  explicit Visitor(EventLog* log) : log_(log) {}
  ~Visitor() override { log_->Add("released"); }

  std::string to_delete;
  int stop_after = -1;

  bool Visit(const CefCookie& cookie, int count, int total, bool& deleteCookie) override {
    EXPECT_TRUE(CefCurrentlyOn(TID_UI));
    const std::string name = CefString(&cookie.name);
    const std::string domain = CefString(&cookie.domain);
    const std::string path = CefString(&cookie.path);
    const std::string value = CefString(&cookie.value);
    log_->Add(name + "=" + value + " " + domain + path + " " + std::to_string(count) + "/" +
              std::to_string(total));
    deleteCookie = name == to_delete;
    return count + 1 != stop_after;
  }

 private:
  EventLog* const log_;
  IMPLEMENT_REFCOUNTING(Visitor);
};

class SetDone : public CefSetCookieCallback {
 public:
  explicit SetDone(EventLog* log) : log_(log) {}
  void OnComplete(bool success) override {
    EXPECT_TRUE(CefCurrentlyOn(TID_UI));
    log_->Add(success ? "set" : "refused");
  }

 private:
  EventLog* const log_;
  IMPLEMENT_REFCOUNTING(SetDone);
};

class DeleteDone : public CefDeleteCookiesCallback {
 public:
  explicit DeleteDone(EventLog* log) : log_(log) {}
  void OnComplete(int num_deleted) override {
    EXPECT_TRUE(CefCurrentlyOn(TID_UI));
    log_->Add("deleted " + std::to_string(num_deleted));
  }

 private:
  EventLog* const log_;
  IMPLEMENT_REFCOUNTING(DeleteDone);
};

class Done : public CefCompletionCallback {
 public:
  Done(EventLog* log, const std::string& text) : log_(log), text_(text) {}
  void OnComplete() override {
    EXPECT_TRUE(CefCurrentlyOn(TID_UI));
    log_->Add(text_);
  }

 private:
  EventLog* const log_;
  const std::string text_;
  IMPLEMENT_REFCOUNTING(Done);
};

CefCookie MakeCookie(const std::string& name, const std::string& value) {
  CefCookie cookie;
  CefString(&cookie.name) = name;
  CefString(&cookie.value) = value;
  return cookie;
}

CefCookie Lasting(CefCookie cookie) {
  cookie.has_expires = true;
  cookie.expires = CefBaseTime::Now();
  cookie.expires.val += 3600LL * 1000000;
  return cookie;
}

class CookieTest : public EngineTest {
 protected:
  static CefRefPtr<CefCookieManager> Manager() {
    return CefCookieManager::GetGlobalManager(nullptr);
  }

  /// Sets a cookie and returns what became of it.
  std::string Set(const std::string& url, const CefCookie& cookie) {
    cookies_.Clear();
    if (!Manager()->SetCookie(url, cookie, new SetDone(&cookies_))) {
      return "false";
    }
    return Answer();
  }

  std::string Delete(const std::string& url, const std::string& name) {
    cookies_.Clear();
    if (!Manager()->DeleteCookies(url, name, new DeleteDone(&cookies_))) {
      return "false";
    }
    return Answer();
  }

  /// What is visited for `url`, or of all cookies without one, until the visitor is released.
  std::vector<std::string> Visit(const std::string& url = {}, bool http_only = true) {
    CefRefPtr<Visitor> visitor = new Visitor(&cookies_);
    return Visit(visitor, url, http_only);
  }
  std::vector<std::string> Visit(CefRefPtr<Visitor>& visitor,
                                 const std::string& url = {},
                                 bool http_only = true) {
    cookies_.Clear();
    EXPECT_TRUE(url.empty() ? Manager()->VisitAllCookies(visitor)
                            : Manager()->VisitUrlCookies(url, http_only, visitor));
    visitor = nullptr;
    EXPECT_TRUE(cookies_.WaitUntil([&] { return !cookies_.Only({"released"}).empty(); }));
    std::vector<std::string> visited = cookies_.All();
    EXPECT_EQ(visited.back(), "released");
    visited.pop_back();
    return visited;
  }

  bool StartWith(bool persist_session_cookies) {
    CefSettings settings;
    CefString(&settings.cache_path) = (folder_ / L"profile").wstring();
    settings.persist_session_cookies = persist_session_cookies;
    return StartEngine(settings);
  }

  EventLog cookies_;

 private:
  std::string Answer() {
    EXPECT_TRUE(cookies_.WaitUntil([&] { return !cookies_.All().empty(); }));
    return cookies_.All().empty() ? "" : cookies_.All().front();
  }
};

TEST_F(CookieTest, TheManagerTellsWhenItsStoreIsThere) {
  ASSERT_TRUE(StartEngine());
  CefCookieManager::GetGlobalManager(new Done(&cookies_, "ready"));
  EXPECT_TRUE(cookies_.WaitFor("ready"));
}

TEST_F(CookieTest, AnEmptyStoreNeverCallsTheVisitorButLetsGoOfIt) {
  ASSERT_TRUE(StartEngine());
  EXPECT_THAT(Visit(), IsEmpty());
  EXPECT_THAT(Visit("http://a.test/"), IsEmpty());
}

TEST_F(CookieTest, LongestPathsAndOldestCookiesAreVisitedFirst) {
  ASSERT_TRUE(StartEngine());
  CefCookie deep = MakeCookie("deep", "3");
  CefString(&deep.path) = "/x/y";
  EXPECT_EQ(Set("http://a.test/", MakeCookie("first", "1")), "set");
  EXPECT_EQ(Set("http://a.test/", MakeCookie("second", "2")), "set");
  EXPECT_EQ(Set("http://a.test/", deep), "set");
  EXPECT_THAT(Visit(),
              ElementsAre("deep=3 a.test/x/y 0/3", "first=1 a.test/ 1/3", "second=2 a.test/ 2/3"));
}

TEST_F(CookieTest, UrlVisitsSeeWhatTheUrlWouldGet) {
  ASSERT_TRUE(StartEngine());
  CefCookie domain = MakeCookie("domain", "1");
  CefString(&domain.domain) = "a.test";
  CefCookie hidden = MakeCookie("hidden", "2");
  hidden.httponly = true;
  CefCookie secure = MakeCookie("secure", "3");
  secure.secure = true;
  EXPECT_EQ(Set("http://b.a.test/", domain), "set");
  EXPECT_EQ(Set("http://b.a.test/", hidden), "set");
  EXPECT_EQ(Set("https://b.a.test/", secure), "set");
  EXPECT_EQ(Set("http://c.test/", MakeCookie("other", "4")), "set");
  EXPECT_THAT(Visit("http://b.a.test/x"),
              ElementsAre("domain=1 .a.test/ 0/2", "hidden=2 b.a.test/ 1/2"));
  EXPECT_THAT(Visit("http://b.a.test/x", false), ElementsAre("domain=1 .a.test/ 0/1"));
  EXPECT_THAT(
      Visit("https://b.a.test/"),
      ElementsAre("domain=1 .a.test/ 0/3", "hidden=2 b.a.test/ 1/3", "secure=3 b.a.test/ 2/3"));
  EXPECT_THAT(Visit("https://a.test/"), ElementsAre("domain=1 .a.test/ 0/1"));
  EXPECT_EQ(Visit().size(), 4u);
}

TEST_F(CookieTest, AVisitorMayStopAndDelete) {
  ASSERT_TRUE(StartEngine());
  for (const char* name : {"one", "two", "three"}) {
    CefCookie cookie = MakeCookie(name, "v");
    cookie.httponly = true;
    CefString(&cookie.domain) = ".a.test";
    EXPECT_EQ(Set("http://a.test/", Lasting(cookie)), "set");
  }
  CefRefPtr<Visitor> visitor = new Visitor(&cookies_);
  visitor->stop_after = 2;
  visitor->to_delete = "two";
  EXPECT_THAT(Visit(visitor), ElementsAre("one=v .a.test/ 0/3", "two=v .a.test/ 1/3"));
  EXPECT_THAT(Visit(), ElementsAre("one=v .a.test/ 0/2", "three=v .a.test/ 1/2"));
}

TEST_F(CookieTest, InvalidUrlsAndMissingVisitorsAreRefusedAtOnce) {
  ASSERT_TRUE(StartEngine());
  EXPECT_FALSE(Manager()->VisitAllCookies(nullptr));
  EXPECT_FALSE(Manager()->VisitUrlCookies("http://a.test/", true, nullptr));
  EXPECT_FALSE(Manager()->VisitUrlCookies("no url", true, new Visitor(&cookies_)));
  EXPECT_EQ(Set("no url", MakeCookie("n", "v")), "false");
  EXPECT_EQ(Set("", MakeCookie("n", "v")), "false");
  EXPECT_EQ(Delete("no url", ""), "false");
}

TEST_F(CookieTest, CookiesThatTheBrowserRefusesAnswerFalse) {
  ASSERT_TRUE(StartEngine());
  EXPECT_EQ(Set("http://a.test/", MakeCookie("n", "a;b")), "refused");
  EXPECT_EQ(Set("http://a.test/", MakeCookie("n=", "v")), "refused");
  EXPECT_EQ(Set("about:blank", MakeCookie("n", "v")), "refused");
  CefCookie foreign = MakeCookie("n", "v");
  CefString(&foreign.domain) = "b.test";
  EXPECT_EQ(Set("http://a.test/", foreign), "refused");
  CefCookie shared = MakeCookie("n", "v");
  CefString(&shared.domain) = "co.uk";
  EXPECT_EQ(Set("http://a.co.uk/", shared), "refused");
  CefCookie host = MakeCookie("__Host-n", "v");
  EXPECT_EQ(Set("https://a.test/", host), "refused");
  CefCookie secure = MakeCookie("n", "v");
  secure.secure = true;
  EXPECT_EQ(Set("http://a.test/", secure), "refused");
  EXPECT_THAT(Visit(), IsEmpty());
}

TEST_F(CookieTest, AnExpiryInThePastRemovesTheCookie) {
  ASSERT_TRUE(StartEngine());
  EXPECT_EQ(Set("http://a.test/", MakeCookie("n", "v")), "set");
  CefCookie past = MakeCookie("n", "v");
  past.has_expires = true;
  EXPECT_EQ(Set("http://a.test/", past), "set");
  EXPECT_THAT(Visit(), IsEmpty());
}

TEST_F(CookieTest, CookiesAreDeletedByUrlAndName) {
  ASSERT_TRUE(StartEngine());
  const auto fill = [&] {
    CefCookie domain = MakeCookie("n", "d");
    CefString(&domain.domain) = "a.test";
    CefCookie deep = MakeCookie("deep", "x");
    CefString(&deep.path) = "/x";
    EXPECT_EQ(Set("http://a.test/", domain), "set");
    EXPECT_EQ(Set("http://a.test/", deep), "set");
    EXPECT_EQ(Set("http://a.test/", MakeCookie("n", "h")), "set");
    EXPECT_EQ(Set("http://b.test/", MakeCookie("n", "b")), "set");
  };
  fill();
  EXPECT_EQ(Delete("http://a.test/", "n"), "deleted 2");
  EXPECT_THAT(Visit(), ElementsAre("deep=x a.test/x 0/2", "n=b b.test/ 1/2"));
  fill();
  EXPECT_EQ(Delete("http://a.test/", ""), "deleted 2");
  EXPECT_THAT(Visit(), UnorderedElementsAre(HasSubstr("n=d .a.test"), HasSubstr("n=b b.test")));
  EXPECT_EQ(Delete("http://a.test/", "none"), "deleted 0");
  EXPECT_EQ(Delete("", ""), "deleted 2");
  EXPECT_THAT(Visit(), IsEmpty());
}

TEST_F(CookieTest, PagesAndTheManagerShareTheStore) {
  server_.Add("/page", "<script>document.cookie = 'page=1; max-age=1000'</script>");
  ASSERT_TRUE(StartEngine());
  CefCookie mine = MakeCookie("mine", "x");
  mine.secure = true;
  mine.same_site = CEF_COOKIE_SAME_SITE_NO_RESTRICTION;
  EXPECT_EQ(Set(server_.Url("/"), mine), "set");
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(server_.RequestText("/page"), HasSubstr("Cookie: mine=x"));
  EXPECT_THAT(Visit(server_.Url("/")),
              ElementsAre("mine=x 127.0.0.1/ 0/2", "page=1 127.0.0.1/ 1/2"));
}

TEST_F(CookieTest, VisitsFromManyThreadsAllEnd) {
  ASSERT_TRUE(StartEngine());
  EXPECT_EQ(Set("http://a.test/", MakeCookie("n", "v")), "set");
  cookies_.Clear();
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      for (int visit = 0; visit < 10; ++visit) {
        EXPECT_TRUE(Manager()->VisitUrlCookies("http://a.test/", true, new Visitor(&cookies_)));
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_TRUE(cookies_.WaitUntil([&] { return cookies_.Only({"released"}).size() == 80; }));
  EXPECT_EQ(cookies_.Only({"n=v"}).size(), 80u);
}

TEST_F(CookieTest, ThousandsOfCookiesAreVisitedQuickly) {
  ASSERT_TRUE(StartEngine());
  constexpr int kCount = 3000;
  for (int i = 0; i < kCount; ++i) {
    ASSERT_TRUE(Manager()->SetCookie("http://h" + std::to_string(i / 100) + ".test/",
                                     Lasting(MakeCookie("n" + std::to_string(i), "v")), nullptr));
  }
  EXPECT_EQ(Visit("http://h1.test/").size(), 100u);
  const ULONGLONG start = GetTickCount64();
  EXPECT_EQ(Visit().size(), static_cast<size_t>(kCount));
  EXPECT_LT(GetTickCount64() - start, 3000u);
}

TEST_F(CookieTest, LastingCookiesSurviveARestartAndSessionCookiesDoNot) {
  ASSERT_TRUE(StartWith(false));
  EXPECT_EQ(Set("http://a.test/", Lasting(MakeCookie("lasting", "1"))), "set");
  EXPECT_EQ(Set("http://a.test/", MakeCookie("session", "2")), "set");
  StopEngine();
  ASSERT_TRUE(StartWith(false));
  EXPECT_THAT(Visit(), ElementsAre("lasting=1 a.test/ 0/1"));
}

TEST_F(CookieTest, SessionCookiesSurviveARestartWhenAskedFor) {
  ASSERT_TRUE(StartWith(true));
  CefCookie secure = MakeCookie("__Host-session", "1");
  secure.secure = true;
  CefString(&secure.path) = "/";
  EXPECT_EQ(Set("https://a.test/", secure), "set");
  EXPECT_EQ(Set("http://a.test/", Lasting(MakeCookie("lasting", "2"))), "set");
  StopEngine();
  ASSERT_TRUE(StartWith(true));
  EXPECT_THAT(Visit("https://a.test/"), UnorderedElementsAre(HasSubstr("__Host-session=1 a.test/ "),
                                                             HasSubstr("lasting=2 a.test/ ")));
  StopEngine();
  ASSERT_TRUE(StartWith(false));
  EXPECT_THAT(Visit(), ElementsAre("lasting=2 a.test/ 0/1"));
  StopEngine();
  // Not asked for once, they are gone for good.
  ASSERT_TRUE(StartWith(true));
  EXPECT_THAT(Visit(), ElementsAre("lasting=2 a.test/ 0/1"));
}

TEST_F(CookieTest, FlushedCookiesSurviveTheBrowsersSuddenEnd) {
  ASSERT_TRUE(StartWith(false));
  CreateBrowser(client_, "about:blank");
  ASSERT_TRUE(log_.WaitFor("created"));
  EXPECT_EQ(Set("http://a.test/", Lasting(MakeCookie("flushed", "1"))), "set");
  ASSERT_TRUE(Manager()->FlushStore(new Done(&cookies_, "flushed")));
  ASSERT_TRUE(cookies_.WaitFor("flushed"));
  KillUnixProcess(Engine::Get()->unix_pid());
  ASSERT_TRUE(log_.WaitFor("closed"));
  StopEngine();
  ASSERT_TRUE(StartWith(false));
  EXPECT_THAT(Visit(), ElementsAre("flushed=1 a.test/ 0/1"));
}

TEST_F(CookieTest, WithoutABrowserNothingIsAccessedAndNothingHangs) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "about:blank");
  ASSERT_TRUE(log_.WaitFor("created"));
  const CefRefPtr<CefCookieManager> manager = Manager();
  KillUnixProcess(Engine::Get()->unix_pid());
  ASSERT_TRUE(log_.WaitFor("closed"));
  const auto refuses_everything = [&] {
    EXPECT_FALSE(manager->VisitAllCookies(new Visitor(&cookies_)));
    EXPECT_FALSE(manager->VisitUrlCookies("http://a.test/", true, new Visitor(&cookies_)));
    EXPECT_FALSE(manager->SetCookie("http://a.test/", MakeCookie("n", "v"), nullptr));
    EXPECT_FALSE(manager->DeleteCookies("", "", nullptr));
    EXPECT_FALSE(manager->FlushStore(nullptr));
  };
  refuses_everything();
  StopEngine();
  refuses_everything();
  EXPECT_THAT(cookies_.All(), Not(IsEmpty()));
  EXPECT_EQ(cookies_.Only({"released"}).size(), cookies_.All().size());
}

TEST_F(CookieTest, AVisitUnderWayAtShutdownLetsGoOfItsVisitor) {
  ASSERT_TRUE(StartEngine());
  ASSERT_TRUE(Manager()->VisitAllCookies(new Visitor(&cookies_)));
  StopEngine();
  EXPECT_THAT(cookies_.All(), ElementsAre("released"));
}

}  // namespace
}  // namespace cefedition
