#include <gmock/gmock.h>

#include "engine_fixture.h"

namespace cefedition {
namespace {

using testing::Contains;
using testing::ElementsAre;

const std::vector<std::string> kLoadEvents = {
    "created", "loading", "before-browse", "start", "address", "title", "end", "idle", "error"};

TEST_F(EngineTest, OneNavigationInOrder) {
  server_.Add("/page", "<title>The page</title><p>text");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only(kLoadEvents),
              ElementsAre("created", "loading", "before-browse main GET " + server_.Url("/page"),
                          "start main 0x2000001", "address " + server_.Url("/page"),
                          "title The page", "end main 200", "idle"));
  const CefRefPtr<CefFrame> frame = client_->First()->GetMainFrame();
  EXPECT_EQ(frame->GetURL().ToString(), server_.Url("/page"));
  EXPECT_FALSE(client_->First()->IsLoading());
  EXPECT_TRUE(client_->First()->HasDocument());
}

TEST_F(EngineTest, DataUrlHasNoStatusAndIsAskedAbout) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "data:text/html,<title>D</title>x");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(
      log_.Only(kLoadEvents),
      ElementsAre("created", "loading", "before-browse main GET data:text/html,<title>D</title>x",
                  "start main 0x2000001", "address data:text/html,<title>D</title>x", "title D",
                  "end main 0", "idle"));
}

TEST_F(EngineTest, FailedLoadRaisesNeitherStartNorEnd) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "http://127.0.0.1:64999/");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(
      log_.Only({"start", "end", "error", "idle"}),
      ElementsAre("error main -102 ERR_CONNECTION_REFUSED http://127.0.0.1:64999/", "idle"));
}

TEST_F(EngineTest, ErrorStatusIsReportedWithTheDocument) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/nowhere"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"end", "error"}), ElementsAre("end main 404"));
}

TEST_F(EngineTest, FragmentAndHistoryStateChangeTheAddressOnly) {
  server_.Add("/page", "<title>P</title>");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/page#there"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only(kLoadEvents),
              ElementsAre("loading", "address " + server_.Url("/page#there"), "idle back"));
  log_.Clear();
  Run("history.pushState(1, '', '/elsewhere')");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only(kLoadEvents),
              ElementsAre("loading back", "address " + server_.Url("/elsewhere"), "idle back"));
}

TEST_F(EngineTest, RedirectIsAskedAboutAgain) {
  PageServer::Page redirect;
  redirect.status = 302;
  redirect.headers = "Location: /new\r\n";
  server_.AddPage("/old", redirect);
  server_.Add("/new", "new");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/old"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"before-browse", "address", "end"}),
              ElementsAre("before-browse main GET " + server_.Url("/old"),
                          "before-browse main GET " + server_.Url("/new") + " redirect",
                          "address " + server_.Url("/new"), "end main 200"));
}

TEST_F(EngineTest, CancelledNavigationReachesNoServer) {
  server_.Add("/page", "page");
  server_.Add("/forbidden", "no");
  ASSERT_TRUE(StartEngine());
  client_->cancel_navigation = [](const std::string& url) {
    return url.find("forbidden") != std::string::npos;
  };
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/forbidden"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only(kLoadEvents),
              ElementsAre("loading", "before-browse main GET " + server_.Url("/forbidden"),
                          "error main -3 ERR_ABORTED " + server_.Url("/forbidden"), "idle"));
  EXPECT_THAT(server_.Requests(), testing::Not(Contains("/forbidden")));
  EXPECT_EQ(client_->First()->GetMainFrame()->GetURL().ToString(), server_.Url("/page"));
  log_.Clear();
  client_->First()->GetMainFrame()->LoadURL("data:text/html,forbidden");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"start", "error"}),
              ElementsAre("error main -3 ERR_ABORTED data:text/html,forbidden"));
}

TEST_F(EngineTest, LinkHistoryAndReloadCarryTheirTransitions) {
  server_.Add("/one", "<a id=link href=/two>two</a>");
  server_.Add("/two", "<title>Two</title>");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/one"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_FALSE(client_->First()->CanGoBack());
  log_.Clear();
  Run("document.getElementById('link').click()");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"start", "idle"}), ElementsAre("start main 0x0", "idle back"));
  EXPECT_TRUE(client_->First()->CanGoBack());
  log_.Clear();
  client_->First()->GoBack();
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(
      log_.Only({"start", "address", "idle"}),
      ElementsAre("start main 0x1000000", "address " + server_.Url("/one"), "idle forward"));
  log_.Clear();
  client_->First()->GoForward();
  ASSERT_TRUE(log_.WaitFor("idle back"));
  log_.Clear();
  client_->First()->Reload();
  ASSERT_TRUE(log_.WaitFor("idle back"));
  EXPECT_THAT(log_.Only({"start", "end"}), ElementsAre("start main 0x8", "end main 200"));
}

TEST_F(EngineTest, StoppedLoadIsAborted) {
  PageServer::Page slow;
  slow.held = true;
  server_.AddPage("/slow", slow);
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/slow"));
  ASSERT_TRUE(log_.WaitFor("before-browse"));
  ASSERT_TRUE(server_.WaitForRequest("/slow"));
  EXPECT_TRUE(client_->First()->IsLoading());
  client_->First()->StopLoad();
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"start", "end", "error"}),
              ElementsAre("error main -3 ERR_ABORTED " + server_.Url("/slow")));
}

TEST_F(EngineTest, SubFramesHaveTheirOwnStartAndEnd) {
  server_.Add("/outer", "<iframe name=inside src=/inner></iframe>");
  server_.Add("/inner", "inner");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/outer"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"start", "address", "end", "idle"}),
              ElementsAre("start main 0x2000001", "address " + server_.Url("/outer"),
                          "start sub:inside 0x3", "end sub:inside 200", "end main 200", "idle"));
  const CefRefPtr<CefBrowser> browser = client_->First();
  EXPECT_EQ(browser->GetFrameCount(), 2u);
  const CefRefPtr<CefFrame> inner = browser->GetFrameByName("inside");
  ASSERT_TRUE(inner);
  EXPECT_FALSE(inner->IsMain());
  EXPECT_EQ(inner->GetURL().ToString(), server_.Url("/inner"));
  EXPECT_TRUE(inner->GetParent()->IsMain());
  inner->ExecuteJavaScript("console.log('in ' + location.pathname)", CefString(), 1);
  EXPECT_TRUE(log_.WaitFor("console 2 [in /inner]"));
  browser->GetMainFrame()->LoadURL(server_.Url("/inner"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_EQ(browser->GetFrameCount(), 1u);
  EXPECT_FALSE(inner->IsValid());
}

TEST_F(EngineTest, InvalidUrlIsAnError) {
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "http://[bad");
  ASSERT_TRUE(log_.WaitFor("error"));
  EXPECT_THAT(log_.Only({"error"}), ElementsAre("error main -300 ERR_INVALID_URL http://[bad"));
}

TEST_F(EngineTest, HostNameWithoutSchemeIsCompleted) {
  server_.Add("/page", "page");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, "127.0.0.1:" + std::to_string(server_.port()) + "/page");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"address"}), ElementsAre("address " + server_.Url("/page")));
}

TEST_F(EngineTest, CallbackMayCallBackIntoTheApi) {
  server_.Add("/first", "first");
  server_.Add("/second", "<title>second</title>");
  ASSERT_TRUE(StartEngine());
  client_->on_created = [this](CefRefPtr<CefBrowser> browser) {
    browser->GetMainFrame()->LoadURL(server_.Url("/second"));
    EXPECT_NE(browser->GetHost()->GetWindowHandle(), nullptr);
    EXPECT_TRUE(browser->GetMainFrame()->IsMain());
  };
  CreateBrowser(client_, "");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"address"}), ElementsAre("address " + server_.Url("/second")));
}

TEST_F(EngineTest, TitleFollowsTheDocument) {
  server_.Add("/untitled", "<p>nothing");
  server_.Add("/page", "<title>first</title>");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/untitled"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"title"}), ElementsAre("title " + server_.Url("/untitled").substr(7)));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("title first"));
  Run("document.title = 'second'");
  EXPECT_TRUE(log_.WaitFor("title second"));
}

TEST_F(EngineTest, IconsOfThePage) {
  server_.Add("/page", "<link rel='shortcut icon' href='/a.ico'><link rel=icon href='b.png'>");
  server_.Add("/plain", "plain");
  ASSERT_TRUE(StartEngine());
  CreateBrowser(client_, server_.Url("/page"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/plain"));
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"icons"}),
              ElementsAre("icons " + server_.Url("/a.ico") + " " + server_.Url("/b.png"),
                          "icons " + server_.Url("/favicon.ico")));
}

}  // namespace
}  // namespace cefedition
