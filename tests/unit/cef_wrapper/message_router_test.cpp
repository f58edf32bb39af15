// The message router: who gets a query, what the page is told, and how queries end.

#include "include/wrapper/cef_message_router.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "recording_cef/fake_browser.h"
#include "recording_cef/recording_cef.h"

namespace {

using recording_cef::FakeBrowser;
using recording_cef::FakeFrame;

class RecordingHandler final : public CefMessageRouterBrowserSide::Handler {
 public:
  bool OnQuery(CefRefPtr<CefBrowser>,
               CefRefPtr<CefFrame>,
               int64_t query_id,
               const CefString& request,
               bool persistent,
               CefRefPtr<Callback> query_callback) override {
    log.push_back("query " + std::to_string(query_id) + " " + request.ToString() +
                  (persistent ? " persistent" : ""));
    callback = takes ? query_callback : nullptr;
    return takes;
  }
  bool OnQuery(CefRefPtr<CefBrowser>,
               CefRefPtr<CefFrame>,
               int64_t,
               CefRefPtr<const CefBinaryBuffer> request,
               bool,
               CefRefPtr<Callback> query_callback) override {
    log.push_back("bytes " +
                  std::string(static_cast<const char*>(request->GetData()), request->GetSize()));
    callback = query_callback;
    return true;
  }
  void OnQueryCanceled(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame>, int64_t query_id) override {
    log.push_back("canceled " + std::to_string(query_id));
  }

  bool takes = true;
  std::vector<std::string> log;
  CefRefPtr<Callback> callback;
};

class MessageRouterTest : public testing::Test {
 protected:
  using Log = std::vector<std::string>;

  MessageRouterTest() {
    recording_cef::RecordingCef::Get().Reset();
    router_ = CefMessageRouterBrowserSide::Create(CefMessageRouterConfig());
    router_->AddHandler(&handler_, false);
  }

  bool Query(int context, int request, const char* text, bool persistent = false) {
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("cefQueryMsg");
    message->GetArgumentList()->SetInt(0, context);
    message->GetArgumentList()->SetInt(1, request);
    message->GetArgumentList()->SetString(2, text);
    message->GetArgumentList()->SetBool(3, persistent);
    return Receive(message);
  }
  bool CancelFromPage(int context, int request) {
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("cefQueryCancelMsg");
    message->GetArgumentList()->SetInt(0, context);
    message->GetArgumentList()->SetInt(1, request);
    return Receive(message);
  }
  bool Receive(const CefRefPtr<CefProcessMessage>& message) {
    return router_->OnProcessMessageReceived(browser_, browser_->main_frame, PID_RENDERER, message);
  }

  // The answers that the page got, as "context request ok text" or "context request code text".
  Log Answers() const {
    Log answers;
    for (const recording_cef::SentMessage& sent : browser_->main_frame->messages) {
      EXPECT_EQ(sent.target, PID_RENDERER);
      EXPECT_EQ(sent.message->GetName().ToString(), "cefQueryMsg");
      const CefRefPtr<CefListValue> list = sent.message->GetArgumentList();
      const std::string start =
          std::to_string(list->GetInt(0)) + " " + std::to_string(list->GetInt(1)) + " ";
      answers.push_back(list->GetBool(2) ? start + "ok " + list->GetString(3).ToString()
                                         : start + std::to_string(list->GetInt(3)) + " " +
                                               list->GetString(4).ToString());
    }
    return answers;
  }

  CefRefPtr<FakeBrowser> browser_ = new FakeBrowser;
  RecordingHandler handler_;
  CefRefPtr<CefMessageRouterBrowserSide> router_;
};

TEST_F(MessageRouterTest, AnswersAQueryOnce) {
  EXPECT_TRUE(Query(3, 4, "hello"));
  EXPECT_EQ(handler_.log, (Log{"query 1 hello"}));
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 1);
  handler_.callback->Success("answer");
  handler_.callback->Success("again");
  handler_.callback->Failure(5, "too late");
  EXPECT_EQ(Answers(), (Log{"3 4 ok answer"}));
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 0);
}

TEST_F(MessageRouterTest, TellsThePageOfAFailure) {
  Query(1, 1, "x");
  handler_.callback->Failure(42, "why");
  EXPECT_EQ(Answers(), (Log{"1 1 42 why"}));
}

TEST_F(MessageRouterTest, APersistentQueryAnswersUntilItFails) {
  Query(1, 1, "x", true);
  EXPECT_EQ(handler_.log, (Log{"query 1 x persistent"}));
  handler_.callback->Success("a");
  handler_.callback->Success("b");
  handler_.callback->Failure(1, "end");
  handler_.callback->Success("c");
  EXPECT_EQ(Answers(), (Log{"1 1 ok a", "1 1 ok b", "1 1 1 end"}));
}

TEST_F(MessageRouterTest, AQueryThatNobodyTakesIsCanceled) {
  handler_.takes = false;
  EXPECT_TRUE(Query(1, 2, "x"));
  EXPECT_EQ(Answers(), (Log{"1 2 -1 The query has been canceled"}));
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 0);
}

TEST_F(MessageRouterTest, AsksHandlersInOrder) {
  RecordingHandler first;
  first.takes = false;
  EXPECT_TRUE(router_->AddHandler(&first, true));
  EXPECT_FALSE(router_->AddHandler(&first, true));
  EXPECT_FALSE(router_->AddHandler(nullptr, true));
  Query(1, 1, "x");
  EXPECT_EQ(first.log.size(), 1u);
  EXPECT_EQ(handler_.log.size(), 1u);
  first.takes = true;
  Query(1, 2, "y");
  EXPECT_EQ(first.log.size(), 2u);
  EXPECT_EQ(handler_.log.size(), 1u);
  EXPECT_EQ(router_->GetPendingCount(nullptr, &first), 1);
  EXPECT_EQ(router_->GetPendingCount(browser_, nullptr), 2);
  EXPECT_TRUE(router_->RemoveHandler(&first));
  EXPECT_FALSE(router_->RemoveHandler(&first));
  EXPECT_EQ(first.log.back(), "canceled 2");
  EXPECT_EQ(Answers(), (Log{"1 2 -1 The query has been canceled"}));
}

TEST_F(MessageRouterTest, PageMayCancelOneQueryOrAContext) {
  Query(1, 1, "a");
  Query(1, 2, "b");
  Query(2, 1, "c");
  Query(2, 2, "d");
  EXPECT_TRUE(CancelFromPage(1, 2));
  EXPECT_EQ(handler_.log.back(), "canceled 2");
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 3);
  EXPECT_TRUE(CancelFromPage(2, 0));
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 1);
  EXPECT_TRUE(Answers().empty());
}

TEST_F(MessageRouterTest, NavigationOfTheMainFrameEndsQueries) {
  Query(1, 1, "x");
  const CefRefPtr<FakeFrame> child = browser_->AddFrame("child", "");
  router_->OnBeforeBrowse(browser_, child);
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 1);
  router_->OnBeforeBrowse(browser_, browser_->main_frame);
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 0);
  EXPECT_EQ(handler_.log.back(), "canceled 1");
  handler_.callback->Success("late");
  EXPECT_TRUE(Answers().empty());
}

TEST_F(MessageRouterTest, CloseAndCrashEndTheQueriesOfThatBrowserOnly) {
  Query(1, 1, "x");
  const CefRefPtr<FakeBrowser> other = new FakeBrowser(2);
  router_->OnBeforeClose(other);
  router_->OnRenderProcessTerminated(other);
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 1);
  router_->OnBeforeClose(browser_);
  EXPECT_EQ(router_->GetPendingCount(nullptr, nullptr), 0);
  Query(1, 2, "y");
  router_->OnRenderProcessTerminated(browser_);
  EXPECT_EQ(handler_.log.back(), "canceled 2");
}

TEST_F(MessageRouterTest, CancelPendingTellsThePage) {
  Query(1, 1, "x");
  router_->CancelPending(browser_, &handler_);
  EXPECT_EQ(handler_.log.back(), "canceled 1");
  EXPECT_EQ(Answers(), (Log{"1 1 -1 The query has been canceled"}));
}

TEST_F(MessageRouterTest, BytesTravelBothWays) {
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("cefQueryMsg");
  message->GetArgumentList()->SetInt(0, 1);
  message->GetArgumentList()->SetInt(1, 1);
  message->GetArgumentList()->SetBinary(2, CefBinaryValue::Create("raw", 3));
  message->GetArgumentList()->SetBool(3, true);
  EXPECT_TRUE(Receive(message));
  EXPECT_EQ(handler_.log, (Log{"bytes raw"}));
  handler_.callback->Success("back", 4);
  handler_.callback->Success(nullptr, 0);
  ASSERT_EQ(browser_->main_frame->messages.size(), 2u);
  const auto list = browser_->main_frame->messages[0].message->GetArgumentList();
  ASSERT_EQ(list->GetType(3), VTYPE_BINARY);
  EXPECT_EQ(list->GetBinary(3)->GetSize(), 4u);
  EXPECT_EQ(browser_->main_frame->messages[1].message->GetArgumentList()->GetType(3), VTYPE_STRING);
}

TEST_F(MessageRouterTest, AnswersFromOtherThreadsArePosted) {
  Query(1, 1, "x");
  recording_cef::RecordingCef::Get().currently_on = [](CefThreadId) { return false; };
  handler_.callback->Success("later");
  EXPECT_TRUE(Answers().empty());
  recording_cef::RecordingCef::Get().currently_on = nullptr;
  EXPECT_EQ(recording_cef::RecordingCef::Get().RunTasks(), 1);
  EXPECT_EQ(Answers(), (Log{"1 1 ok later"}));
}

TEST_F(MessageRouterTest, LeavesOtherMessagesAlone) {
  EXPECT_FALSE(Receive(CefProcessMessage::Create("Other")));
  EXPECT_FALSE(Receive(nullptr));
  EXPECT_FALSE(router_->OnProcessMessageReceived(browser_, browser_->main_frame, PID_BROWSER,
                                                 CefProcessMessage::Create("cefQueryMsg")));
}

TEST_F(MessageRouterTest, MalformedQueriesReachNobody) {
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("cefQueryMsg");
  EXPECT_TRUE(Receive(message));
  message->GetArgumentList()->SetInt(3, 1);
  EXPECT_TRUE(Receive(message));
  EXPECT_TRUE(Receive(CefProcessMessage::Create("cefQueryCancelMsg")));
  EXPECT_TRUE(handler_.log.empty());
  EXPECT_TRUE(Answers().empty());
}

TEST_F(MessageRouterTest, NeedsFunctionNames) {
  CefMessageRouterConfig config;
  config.js_query_function = "";
  EXPECT_FALSE(CefMessageRouterBrowserSide::Create(config));
}

}  // namespace
