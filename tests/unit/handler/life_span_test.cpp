// Birth and death of browsers, and the router that lives with them.
#include <gmock/gmock.h>

#include <memory>
#include <utility>
#include <vector>

#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using testing::HandlerTest;
using ::testing::InSequence;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

class LifeSpanTest : public HandlerTest {
 protected:
  LifeSpanTest() {
    EXPECT_CALL(owner_, OnBrowserCreated(_)).Times(::testing::AnyNumber());
    EXPECT_CALL(owner_, OnBrowserClosed(_)).Times(::testing::AnyNumber());
    EXPECT_CALL(*host_, BrowserCreatedNotify(_)).Times(::testing::AnyNumber());
  }
};

TEST_F(HandlerTest, TellsTheOwnerAndThenTheHostOfABrowser) {
  {
    const InSequence in_order;
    EXPECT_CALL(owner_, OnBrowserCreated(_)).WillOnce([&](CefRefPtr<CefBrowser> browser) {
      EXPECT_EQ(browser.get(), browser_.get());
      EXPECT_EQ(handler_->browser_count(), 1);
      EXPECT_TRUE(handler_->message_router());
    });
    EXPECT_CALL(*host_, BrowserCreatedNotify(window()));
  }
  handler_->OnAfterCreated(browser_);
}

TEST_F(HandlerTest, CreatesABrowserWithoutOwnerAndHost) {
  handler_->SetDelegate(nullptr);
  host_->closing = true;
  handler_->OnAfterCreated(browser_);
  EXPECT_EQ(handler_->browser_count(), 1);
  EXPECT_TRUE(handler_->message_router());
}

TEST_F(LifeSpanTest, MakesOneRouterForAllItsBrowsers) {
  handler_->OnAfterCreated(browser_);
  const CefRefPtr<CefMessageRouterBrowserSide> router = handler_->message_router();
  handler_->OnAfterCreated(popup_);
  EXPECT_EQ(handler_->message_router().get(), router.get());
  EXPECT_EQ(handler_->browser_count(), 2);
}

TEST_F(LifeSpanTest, DropsTheRouterWithTheLastBrowserOnly) {
  handler_->OnAfterCreated(browser_);
  handler_->OnAfterCreated(popup_);
  handler_->OnBeforeClose(browser_);
  EXPECT_EQ(handler_->browser_count(), 1);
  EXPECT_TRUE(handler_->message_router());
  handler_->OnBeforeClose(popup_);
  EXPECT_EQ(handler_->browser_count(), 0);
  EXPECT_FALSE(handler_->message_router());
}

TEST_F(LifeSpanTest, MakesANewRouterForABrowserAfterTheLast) {
  handler_->OnAfterCreated(browser_);
  handler_->OnBeforeClose(browser_);
  handler_->OnAfterCreated(popup_);
  EXPECT_TRUE(handler_->message_router());
}

TEST_F(LifeSpanTest, TellsTheOwnerOfTheEndAfterTheRouterIsGone) {
  handler_->OnAfterCreated(browser_);
  EXPECT_CALL(owner_, OnBrowserClosed(_)).WillOnce([&](CefRefPtr<CefBrowser> browser) {
    EXPECT_EQ(browser.get(), browser_.get());
    EXPECT_FALSE(handler_->message_router());
    EXPECT_EQ(handler_->browser_count(), 0);
  });
  handler_->OnBeforeClose(browser_);
}

TEST_F(LifeSpanTest, ClosesABrowserWithoutAnOwner) {
  handler_->OnAfterCreated(browser_);
  handler_->SetDelegate(nullptr);
  EXPECT_FALSE(handler_->DoClose(browser_));
  EXPECT_CALL(owner_, OnBrowserClosed(_)).Times(0);
  handler_->OnBeforeClose(browser_);
  EXPECT_EQ(handler_->browser_count(), 0);
}

TEST_F(LifeSpanTest, LetsTheOwnerGiveItsReferenceBackAtTheEnd) {
  CefRefPtr<kzCefClientHandler> last = handler_;
  kzCefClientHandler* const handler = handler_.get();
  handler->OnAfterCreated(browser_);
  EXPECT_CALL(owner_, OnBrowserClosed(_)).WillOnce([&] { handler_ = nullptr; });
  handler->OnBeforeClose(browser_);
  EXPECT_TRUE(last->HasOneRef());
}

TEST_F(HandlerTest, AsksTheOwnerAndClosesNormally) {
  EXPECT_CALL(owner_, OnBrowserClosing(_)).WillOnce([&](CefRefPtr<CefBrowser> browser) {
    EXPECT_EQ(browser.get(), browser_.get());
  });
  EXPECT_FALSE(handler_->DoClose(browser_));
}

class LoggedMessageHandler : public CefMessageRouterBrowserSide::Handler {
 public:
  explicit LoggedMessageHandler(std::vector<const void*>* freed) : freed_(freed) {}
  ~LoggedMessageHandler() override { freed_->push_back(this); }

 private:
  std::vector<const void*>* const freed_;
};

TEST_F(LifeSpanTest, FreesMessageHandlersInSetOrderWithTheLastBrowser) {
  std::vector<const void*> freed;
  std::vector<const void*> installed;
  handler_->OnAfterCreated(browser_);
  handler_->OnAfterCreated(popup_);
  for (int i = 0; i < 5; ++i) {
    auto message_handler = std::make_unique<LoggedMessageHandler>(&freed);
    installed.push_back(message_handler.get());
    EXPECT_TRUE(handler_->AddMessageHandler(std::move(message_handler)));
  }
  const CefRefPtr<CefMessageRouterBrowserSide> router = handler_->message_router();

  handler_->OnBeforeClose(browser_);
  EXPECT_THAT(freed, ElementsAre());
  handler_->OnBeforeClose(popup_);
  EXPECT_TRUE(std::is_sorted(freed.begin(), freed.end(), std::less<>()));
  EXPECT_THAT(freed, UnorderedElementsAreArray(installed));
  // The router has let go of them: it would refuse to add one that it still has.
  LoggedMessageHandler* const gone =
      static_cast<LoggedMessageHandler*>(const_cast<void*>(installed.front()));
  EXPECT_FALSE(router->RemoveHandler(gone));
}

TEST_F(LifeSpanTest, TakesNoMessageHandlerWithoutABrowser) {
  std::vector<const void*> freed;
  EXPECT_FALSE(handler_->AddMessageHandler(std::make_unique<LoggedMessageHandler>(&freed)));
  EXPECT_EQ(freed.size(), 1u);
}

TEST_F(LifeSpanTest, CutsNewBrowsersOffWhileOfflineBeforeTheOwnerHears) {
  handler_->set_offline(true);
  EXPECT_CALL(owner_, OnBrowserCreated(_)).WillOnce([&] { ExpectCutOff(); });
  handler_->OnAfterCreated(browser_);
}

TEST_F(LifeSpanTest, LeavesTheNetworkAloneWhileOnline) {
  handler_->OnAfterCreated(browser_);
  handler_->OnDocumentAvailableInMainFrame(browser_);
  EXPECT_THAT(browser_host().devtools_calls, IsEmpty());
}

TEST_F(HandlerTest, CutsANewDocumentOffWhileOffline) {
  handler_->set_offline(true);
  handler_->OnDocumentAvailableInMainFrame(browser_);
  ExpectCutOff();
}

}  // namespace
}  // namespace kzcef
