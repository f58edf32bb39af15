// CEF's events: how they are signalled, reset and waited on.

#include "include/cef_waitable_event.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(WaitableEventTest, AutomaticEventIsResetByOneWait) {
  CefRefPtr<CefWaitableEvent> event = CefWaitableEvent::CreateWaitableEvent(true, false);
  EXPECT_FALSE(event->IsSignaled());
  event->Signal();
  EXPECT_TRUE(event->TimedWait(0));
  EXPECT_FALSE(event->TimedWait(0));
  event->Signal();
  EXPECT_TRUE(event->IsSignaled());
  EXPECT_FALSE(event->IsSignaled());
}

TEST(WaitableEventTest, ManualEventStaysSignaledUntilItIsReset) {
  CefRefPtr<CefWaitableEvent> event = CefWaitableEvent::CreateWaitableEvent(false, true);
  EXPECT_TRUE(event->IsSignaled());
  EXPECT_TRUE(event->TimedWait(0));
  event->Wait();
  event->Reset();
  EXPECT_FALSE(event->IsSignaled());
}

TEST(WaitableEventTest, WaitEndsWithTheSignalOfAnotherThread) {
  CefRefPtr<CefWaitableEvent> event = CefWaitableEvent::CreateWaitableEvent(true, false);
  std::thread thread([event] { event->Signal(); });
  EXPECT_TRUE(event->TimedWait(30'000));
  thread.join();
}

TEST(WaitableEventTest, NegativeTimeDoesNotWait) {
  CefRefPtr<CefWaitableEvent> event = CefWaitableEvent::CreateWaitableEvent(true, false);
  EXPECT_FALSE(event->TimedWait(-1));
}

}  // namespace
