// Messages from renderer processes, and the queries of pages among them.
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "recording_cef/fake_request.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using ::testing::AnyNumber;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MessageTest : public testing::HandlerTest {
 protected:
  MessageTest() {
    EXPECT_CALL(owner_, OnBrowserCreated(_)).Times(AnyNumber());
    EXPECT_CALL(owner_, OnBrowserClosed(_)).Times(AnyNumber());
    EXPECT_CALL(*host_, BrowserCreatedNotify(_)).Times(AnyNumber());
    EXPECT_CALL(*host_, BeforeBrowseNotify(_, _, _, _, _)).Times(AnyNumber());
    handler_->OnAfterCreated(browser_);
  }
  ~MessageTest() override { handler_->OnBeforeClose(browser_); }

  bool Receive(const CefRefPtr<CefProcessMessage>& message) {
    return handler_->OnProcessMessageReceived(browser_, frame(), PID_RENDERER, message);
  }
  bool ReceiveFocus(const std::string& name, bool editable) {
    const CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(name);
    message->GetArgumentList()->SetBool(0, editable);
    return Receive(message);
  }
  // A page's cefQuery of one request, as its renderer sends it.
  bool ReceiveQuery(const std::string& request) {
    const CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("cefQueryMsg");
    const CefRefPtr<CefListValue> arguments = message->GetArgumentList();
    arguments->SetInt(0, 1);
    arguments->SetInt(1, 1);
    arguments->SetString(2, request);
    arguments->SetBool(3, false);
    return Receive(message);
  }
  const std::vector<recording_cef::SentMessage>& Answers() const {
    return browser_->main_frame->messages;
  }
};

TEST_F(MessageTest, FocusIsRecordedAndTheMessageStaysUnhandled) {
  EXPECT_FALSE(handler_->focus_on_editable_field());
  EXPECT_FALSE(ReceiveFocus("ClientRenderer.FocusedNodeChanged", true));
  EXPECT_TRUE(handler_->focus_on_editable_field());
  EXPECT_FALSE(ReceiveFocus("ClientRenderer.FocusedNodeChanged", false));
  EXPECT_FALSE(handler_->focus_on_editable_field());
}

TEST_F(MessageTest, OfAnyOtherNameChangesNothing) {
  for (const char* const name :
       {"clientrenderer.focusednodechanged", "ClientRenderer.FocusedNodeChanged ",
        "ClientRenderer.FocusedNodeChange", " ClientRenderer.FocusedNodeChanged", "KZAddHandler"}) {
    EXPECT_FALSE(ReceiveFocus(name, true)) << name;
    EXPECT_FALSE(handler_->focus_on_editable_field()) << name;
  }
}

TEST_F(MessageTest, FocusWithoutAnArgumentOrOfAnotherTypeCountsAsFalse) {
  ReceiveFocus("ClientRenderer.FocusedNodeChanged", true);
  EXPECT_FALSE(Receive(CefProcessMessage::Create("ClientRenderer.FocusedNodeChanged")));
  EXPECT_FALSE(handler_->focus_on_editable_field());
  const CefRefPtr<CefProcessMessage> text =
      CefProcessMessage::Create("ClientRenderer.FocusedNodeChanged");
  text->GetArgumentList()->SetString(0, "true");
  EXPECT_FALSE(Receive(text));
  EXPECT_FALSE(handler_->focus_on_editable_field());
}

// One that carries shared memory.
class MessageWithoutArguments : public CefProcessMessage {
 public:
  explicit MessageWithoutArguments(const char* name) : name_(name) {}
  bool IsValid() override { return true; }
  bool IsReadOnly() override { return true; }
  CefRefPtr<CefProcessMessage> Copy() override { return this; }
  CefString GetName() override { return name_; }
  CefRefPtr<CefListValue> GetArgumentList() override { return nullptr; }

 private:
  const CefString name_;
  IMPLEMENT_REFCOUNTING(MessageWithoutArguments);
};

TEST_F(MessageTest, WithoutArgumentsChangesNothing) {
  ReceiveFocus("ClientRenderer.FocusedNodeChanged", true);
  for (const char* const name : {"ClientRenderer.FocusedNodeChanged", "cefQueryMsg"}) {
    EXPECT_FALSE(Receive(new MessageWithoutArguments(name))) << name;
  }
  EXPECT_TRUE(handler_->focus_on_editable_field());
}

TEST_F(MessageTest, FocusOutlivesALoad) {
  EXPECT_CALL(owner_, OnSetLoadingState(_, _, _)).Times(2);
  ReceiveFocus("ClientRenderer.FocusedNodeChanged", true);
  handler_->OnLoadingStateChange(browser_, true, false, false);
  handler_->OnLoadingStateChange(browser_, false, false, false);
  EXPECT_TRUE(handler_->focus_on_editable_field());
}

TEST_F(MessageTest, BeforeTheFirstBrowserIsHarmless) {
  const CefRefPtr<kzCefClientHandler> early = new kzCefClientHandler(nullptr, false, "");
  const CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create("cefQueryMsg");
  EXPECT_FALSE(early->OnProcessMessageReceived(browser_, frame(), PID_RENDERER, message));
  EXPECT_FALSE(
      early->OnBeforeBrowse(browser_, frame(), new recording_cef::FakeRequest, false, false));
  early->OnRenderProcessTerminated(browser_, TS_PROCESS_CRASHED);
}

TEST_F(MessageTest, QueryIsTakenAndGetsNoAnswerOfThisSystem) {
  EXPECT_TRUE(ReceiveQuery("anything"));
  ASSERT_THAT(Answers(), SizeIs(1)) << "the router refuses what nobody handles";
  EXPECT_FALSE(Answers()[0].message->GetArgumentList()->GetBool(2)) << "not a success";
}

// Takes every query and never answers.
class SilentHandler : public CefMessageRouterBrowserSide::Handler {
 public:
  explicit SilentHandler(std::vector<std::string>* events) : events_(events) {}
  using CefMessageRouterBrowserSide::Handler::OnQuery;
  bool OnQuery(CefRefPtr<CefBrowser>,
               CefRefPtr<CefFrame>,
               int64_t,
               const CefString& request,
               bool,
               CefRefPtr<Callback>) override {
    events_->push_back("query " + request.ToString());
    return true;
  }
  void OnQueryCanceled(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame>, int64_t) override {
    events_->push_back("cancelled");
  }

 private:
  std::vector<std::string>* const events_;
};

TEST_F(MessageTest, NavigationCancelsThePendingQueriesBeforeTheHostIsAsked) {
  std::vector<std::string> events;
  ASSERT_TRUE(handler_->AddMessageHandler(std::make_unique<SilentHandler>(&events)));
  ASSERT_TRUE(ReceiveQuery("x"));
  ASSERT_THAT(events, ElementsAre("query x"));
  EXPECT_CALL(*host_, BeforeBrowseNotify(window(), _, _, _, _)).WillOnce([&] {
    EXPECT_THAT(events, ElementsAre("query x", "cancelled"));
  });
  handler_->OnBeforeBrowse(browser_, frame(), new recording_cef::FakeRequest("http://a.test/"),
                           false, false);
}

TEST_F(MessageTest, CrashCancelsThePendingQueries) {
  std::vector<std::string> events;
  ASSERT_TRUE(handler_->AddMessageHandler(std::make_unique<SilentHandler>(&events)));
  ASSERT_TRUE(ReceiveQuery("x"));
  handler_->OnRenderProcessTerminated(browser_, TS_PROCESS_CRASHED);
  EXPECT_THAT(events, ElementsAre("query x", "cancelled"));
}

}  // namespace
}  // namespace kzcef
