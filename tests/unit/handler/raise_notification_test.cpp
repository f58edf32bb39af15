// What raising a notification means.
#include <comdef.h>
#include <gmock/gmock.h>

#include <vector>

#include "handler/contained_notification.h"
#include "unit/handler/handler_test.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using testing::HandlerTest;
using ::testing::IsEmpty;

TEST_F(HandlerTest, IsProcessingExactlyWhileANotificationIsRaised) {
  EXPECT_CALL(*host_, EscapeKeyNotify(window())).WillOnce([&] {
    EXPECT_TRUE(host_->processing);
    EXPECT_THAT(host_->exchanges, ElementsAre(true));
  });
  EXPECT_TRUE(RaiseNotification(
      browser_, [](HostNotifications& host, HWND window) { host.EscapeKeyNotify(window); }));
  EXPECT_THAT(host_->exchanges, ElementsAre(true, false));
}

TEST_F(HandlerTest, RaisesNothingWithoutAHost) {
  PublishHostNotifications(nullptr);
  EXPECT_FALSE(
      RaiseNotification(browser_, [](HostNotifications&, HWND) { FAIL() << "was raised"; }));
}

TEST_F(HandlerTest, RaisesNothingForAClosingHost) {
  host_->closing = true;
  EXPECT_FALSE(
      RaiseNotification(browser_, [](HostNotifications&, HWND) { FAIL() << "was raised"; }));
  EXPECT_THAT(host_->exchanges, IsEmpty());
}

TEST_F(HandlerTest, ReportsThatThereIsNoMemoryForATextAsAnAutomationError) {
  try {
    RaiseNotification(browser_, [](HostNotifications&, HWND) { _com_issue_error(E_OUTOFMEMORY); });
    FAIL() << "no error";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_OUTOFMEMORY);
  }
  EXPECT_THAT(host_->exchanges, ElementsAre(true, false));
}

TEST_F(HandlerTest, LetsNoErrorOutOfACallback) {
  EXPECT_CALL(*host_, LoadEndNotify(window(), 200)).WillOnce([] {
    _com_issue_error(E_OUTOFMEMORY);
  });
  EXPECT_NO_THROW(handler_->OnLoadEnd(browser_, frame(), 200));
  EXPECT_THAT(host_->exchanges, ElementsAre(true, false));
}

TEST_F(HandlerTest, GoesOnWithTheHostThatItBeganWith) {
  // The host withdraws in the middle of a notification.
  EXPECT_CALL(*host_, LoadEndNotify(window(), 200)).WillOnce([] {
    PublishHostNotifications(nullptr);
  });
  handler_->OnLoadEnd(browser_, frame(), 200);
  EXPECT_THAT(host_->exchanges, ElementsAre(true, false));
}

TEST(Contained, AnswersForABodyThatThrows) {
  EXPECT_EQ(Contained([] { return 1; }, 7), 1);
  EXPECT_EQ(Contained([]() -> int { throw std::bad_alloc(); }, 7), 7);
  bool ran = false;
  Contained([&] {
    ran = true;
    throw std::bad_alloc();
  });
  EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace kzcef
