// The way from the address in a posted message to the dispatcher
// of a client handler that still lives.

#include "handler/posted_message.h"

#include <gmock/gmock.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include "handler/kz_cef_client_handler.h"
#include "unit/handler/recording_dispatcher.h"

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordingDispatcher;

class PostedMessageTest : public ::testing::Test {
 protected:
  CefRefPtr<kzCefClientHandler> NewHandler(CefRefPtr<HostThreadDispatcher> dispatcher) {
    const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(nullptr, false, "");
    handler->SetDispatcher(dispatcher);
    return handler;
  }

  const CefRefPtr<RecordingDispatcher> dispatcher_ = new RecordingDispatcher();
};

TEST_F(PostedMessageTest, LeadsToTheHandlersDispatcher) {
  const auto other = CefRefPtr<RecordingDispatcher>(new RecordingDispatcher());
  const CefRefPtr<kzCefClientHandler> handler = NewHandler(dispatcher_);
  const CefRefPtr<kzCefClientHandler> second = NewHandler(other);
  EXPECT_EQ(handler->dispatcher().get(), dispatcher_.get());
  FinishPostedRequest(7, handler.get());
  FinishPostedRequest(UINT32_MAX, second.get());
  EXPECT_THAT(dispatcher_->processed, ElementsAre(7u));
  EXPECT_THAT(other->processed, ElementsAre(UINT32_MAX));
}

TEST_F(PostedMessageTest, IsIgnoredWithoutAHandler) {
  const CefRefPtr<kzCefClientHandler> handler = NewHandler(dispatcher_);
  FinishPostedRequest(1, nullptr);
  EXPECT_THAT(dispatcher_->processed, IsEmpty());
}

TEST_F(PostedMessageTest, IsIgnoredForAHandlerWithoutADispatcher) {
  const CefRefPtr<kzCefClientHandler> without = new kzCefClientHandler(nullptr, false, "");
  EXPECT_FALSE(without->dispatcher());
  FinishPostedRequest(1, without.get());
  const CefRefPtr<kzCefClientHandler> with_null = NewHandler(nullptr);
  FinishPostedRequest(1, with_null.get());
}

TEST_F(PostedMessageTest, IsIgnoredForAnAddressThatNeverWasAHandlers) {
  const CefRefPtr<kzCefClientHandler> handler = NewHandler(dispatcher_);
  const int other = 0;
  for (const std::uintptr_t address :
       {std::uintptr_t{1}, reinterpret_cast<std::uintptr_t>(&other), UINTPTR_MAX,
        reinterpret_cast<std::uintptr_t>(handler.get()) + 8}) {
    FinishPostedRequest(1, reinterpret_cast<const kzCefClientHandler*>(address));
  }
  EXPECT_THAT(dispatcher_->processed, IsEmpty());
}

TEST_F(PostedMessageTest, IsIgnoredForAHandlerThatIsGone) {
  CefRefPtr<kzCefClientHandler> handler = NewHandler(dispatcher_);
  const kzCefClientHandler* const address = handler.get();
  handler = nullptr;
  FinishPostedRequest(1, address);
  EXPECT_THAT(dispatcher_->processed, IsEmpty());
  EXPECT_TRUE(dispatcher_->HasOneRef());
}

TEST_F(PostedMessageTest, LetsTheHandlerGoWhileItIsFinished) {
  CefRefPtr<kzCefClientHandler> handler = NewHandler(dispatcher_);
  dispatcher_->during_process = [&] { handler = nullptr; };
  FinishPostedRequest(1, handler.get());
  EXPECT_FALSE(handler);
  EXPECT_THAT(dispatcher_->processed, ElementsAre(1u));
}

TEST_F(PostedMessageTest, LetsNoErrorOut) {
  const CefRefPtr<kzCefClientHandler> handler = NewHandler(dispatcher_);
  dispatcher_->during_process = [] { throw std::runtime_error("no"); };
  FinishPostedRequest(1, handler.get());
  EXPECT_THAT(dispatcher_->processed, ElementsAre(1u));
}

TEST_F(PostedMessageTest, MeetsHandlersThatComeAndGo) {
  std::atomic<const kzCefClientHandler*> address = nullptr;
  std::atomic<bool> done = false;
  std::jthread host([&] {
    while (!done) {
      FinishPostedRequest(1, address);
    }
  });
  const CefRefPtr<RecordingDispatcher> quiet = new RecordingDispatcher();
  quiet->keeps_records = false;
  for (int i = 0; i < 20000; ++i) {
    const CefRefPtr<kzCefClientHandler> handler = NewHandler(quiet);
    address = handler.get();
  }
  done = true;
  host.join();
  EXPECT_TRUE(quiet->HasOneRef());
}

}  // namespace
}  // namespace kzcef
