// The way back from the host's window procedure to the request that waits for it.
#include <windows.h>

#include <gmock/gmock.h>

#include <cstdint>
#include <stdexcept>

#include "com/module.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/posted_message.h"
#include "unit/handler/recording_dispatcher.h"

extern "C" void WINAPI HandlePostMsg(std::uint32_t identifier, kzcef::kzCefClientHandler* handler);
STDAPI DllCanUnloadNow();

namespace kzcef {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordingDispatcher;

class HandlePostMsgTest : public ::testing::Test {
 protected:
  HandlePostMsgTest() { handler_->SetDispatcher(dispatcher_); }

  const CefRefPtr<kzCefClientHandler> handler_ = new kzCefClientHandler(nullptr, false, "");
  const CefRefPtr<RecordingDispatcher> dispatcher_ = new RecordingDispatcher();
};

TEST_F(HandlePostMsgTest, FinishesTheRequestOfThatNumber) {
  HandlePostMsg(7, handler_.get());
  HandlePostMsg(0xFFFFFFFF, handler_.get());
  EXPECT_THAT(dispatcher_->processed, ElementsAre(7u, 0xFFFFFFFFu));
}

TEST_F(HandlePostMsgTest, UsesTheLibrarysOwnResourcesMeanwhile) {
  HINSTANCE inside = nullptr;
  dispatcher_->during_process = [&] { inside = ModuleStateScope::ResourceModule(); };
  HandlePostMsg(1, handler_.get());
  EXPECT_EQ(inside, ModuleInstance());
  EXPECT_NE(ModuleStateScope::ResourceModule(), inside);
}

TEST_F(HandlePostMsgTest, KeepsTheLibraryLoadedMeanwhile) {
  HRESULT inside = S_OK;
  dispatcher_->during_process = [&] { inside = DllCanUnloadNow(); };
  HandlePostMsg(1, handler_.get());
  EXPECT_EQ(inside, S_FALSE);
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(HandlePostMsgTest, EndsQuietlyWhenFinishingFails) {
  dispatcher_->during_process = [] { throw std::runtime_error("no dialog"); };
  HandlePostMsg(1, handler_.get());
  EXPECT_THAT(dispatcher_->processed, ElementsAre(1u));
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(HandlePostMsgTest, HasNoEffectForAnotherAddress) {
  HandlePostMsg(1, nullptr);
  HandlePostMsg(1, reinterpret_cast<kzCefClientHandler*>(0x1234));
  EXPECT_THAT(dispatcher_->processed, IsEmpty());
}

}  // namespace
}  // namespace kzcef
