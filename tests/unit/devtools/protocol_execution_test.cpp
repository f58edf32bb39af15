#include "devtools/protocol_execution.h"

#include <gmock/gmock.h>

#include <atomic>

#include "devtools/url_kinds.h"
#include "engine_fixture.h"
#include "include/cef_resource_request_handler.h"
#include "include/cef_task.h"

namespace cefedition {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

EventLog* g_executed = nullptr;

/// A client that is asked about other programs, and agrees as the test says.
class ExecutionClient : public RecordingClient, public CefResourceRequestHandler {
 public:
  explicit ExecutionClient(EventLog* log) : RecordingClient(log), log_(log) {}

  std::atomic<bool> allow = false;

  CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(CefRefPtr<CefBrowser>,
                                                                 CefRefPtr<CefFrame>,
                                                                 CefRefPtr<CefRequest> request,
                                                                 bool is_navigation,
                                                                 bool,
                                                                 const CefString& initiator,
                                                                 bool&) override {
    if (IsForOtherPrograms(request->GetURL())) {
      initiator_ = initiator.ToString() + (is_navigation ? "" : " no navigation");
    }
    return this;
  }
  void OnProtocolExecution(CefRefPtr<CefBrowser> browser,
                           CefRefPtr<CefFrame> frame,
                           CefRefPtr<CefRequest> request,
                           bool& allow_os_execution) override {
    EXPECT_TRUE(CefCurrentlyOn(TID_IO));
    EXPECT_TRUE(browser);
    EXPECT_TRUE(request->IsReadOnly());
    EXPECT_FALSE(allow_os_execution);
    // Before the test hears of the question, and changes its mind for the next one.
    allow_os_execution = allow;
    log_->Add(std::string("execute ") + (frame->IsMain() ? "main " : "sub ") +
              request->GetURL().ToString() + " from " + initiator_);
  }

 private:
  EventLog* const log_;
  std::string initiator_;

  IMPLEMENT_REFCOUNTING(ExecutionClient);
};

class ProtocolExecutionTest : public EngineTest {
 protected:
  ProtocolExecutionTest() : asked_(new ExecutionClient(&log_)) {
    client_ = asked_;
    g_executed = &log_;
    ReplaceProtocolExecution([](const std::wstring& url) {
      g_executed->Add("executed " + std::string(url.begin(), url.end()));
    });
  }
  ~ProtocolExecutionTest() override {
    StopEngine();
    ReplaceProtocolExecution(nullptr);
  }

  void Load(const std::string& body) {
    server_.Add("/page", body);
    ASSERT_TRUE(StartEngine());
    CreateBrowser(client_, server_.Url("/page"));
    ASSERT_TRUE(log_.WaitFor("idle"));
  }
  std::string Origin() const { return "http://127.0.0.1:" + std::to_string(server_.port()); }

  const CefRefPtr<ExecutionClient> asked_;
};

TEST(ProtocolExecution, WhatTheBrowserLoadsItselfIsForNobodyElse) {
  for (const char* url :
       {"http://a.test/", "HTTPS://a.test/", "file:///c:/x", "data:,x", "about:blank",
        "blob:http://a.test/1", "javascript:1", "no url", "", "c:/windows/notepad.exe"}) {
    EXPECT_FALSE(IsForOtherPrograms(url)) << url;
  }
  for (const char* url : {"mailto:a@b.test", "Spotify:x", "my+app://x/y"}) {
    EXPECT_TRUE(IsForOtherPrograms(url)) << url;
  }
}

TEST_F(ProtocolExecutionTest, NothingIsExecutedUnlessTheClientAgrees) {
  Load("<a id=a href='mailto:a@b.test?subject=x%20y'>a</a>");
  Run("location.href = 'spotify:track'");
  ASSERT_TRUE(log_.WaitFor("execute main spotify:track from " + Origin()));
  asked_->allow = true;
  Run("a.click()");
  ASSERT_TRUE(log_.WaitFor("execute main mailto:a@b.test?subject=x%20y from " + Origin()));
  ASSERT_TRUE(log_.WaitFor("executed mailto:a@b.test?subject=x%20y"));
  EXPECT_THAT(log_.Only({"executed"}), ElementsAre("executed mailto:a@b.test?subject=x%20y"));
  // The page stays.
  EXPECT_EQ(Evaluate("location.pathname"), "/page");
}

TEST_F(ProtocolExecutionTest, FramesAndTheHostAskToo) {
  Load("<iframe id=f></iframe>");
  Run("f.src = 'tel:1'");
  ASSERT_TRUE(log_.WaitFor("execute sub tel:1 from "));
  client_->First()->GetMainFrame()->LoadURL("tel:+2");
  EXPECT_TRUE(log_.WaitFor("execute main tel:+2 from null"));
  EXPECT_EQ(log_.Only({"execute"}).size(), 2u);
}

TEST_F(ProtocolExecutionTest, ACancelledNavigationAsksNobody) {
  asked_->cancel_navigation = [](const std::string& url) { return url.starts_with("tel:"); };
  Load("<body></body>");
  Run("location.href = 'tel:1'");
  ASSERT_TRUE(log_.WaitFor("before-browse main GET tel:1"));
  client_->First()->GetMainFrame()->LoadURL("tel:+2");
  ASSERT_TRUE(log_.WaitFor("before-browse main GET tel:+2"));
  Run("location.href = 'sms:3'");
  ASSERT_TRUE(log_.WaitFor("execute main sms:3"));
  EXPECT_EQ(log_.Only({"execute"}).size(), 1u);
}

TEST_F(ProtocolExecutionTest, OrdinaryNavigationsNeverAsk) {
  server_.Add("/next", "<title>next</title>");
  Load("<iframe src='data:text/html,x'></iframe>");
  client_->First()->GetMainFrame()->LoadURL(server_.Url("/next"));
  ASSERT_TRUE(log_.WaitFor("title next"));
  EXPECT_THAT(log_.Only({"execute"}), IsEmpty());
}

}  // namespace
}  // namespace cefedition
