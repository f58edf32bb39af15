// The export through which a host returns the message that was posted to its main window.

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <thread>

#include "server_library.h"

namespace contract {
namespace {

// The platform's default calling convention; the second argument is an address.
using HandlePostMsgFunction = void (*)(std::uint32_t, void*);

class HostThread : public ::testing::Test {
 protected:
  void SetUp() override {
    handle_post_msg_ =
        reinterpret_cast<HandlePostMsgFunction>(GetProcAddress(server_.module(), "HandlePostMsg"));
    ASSERT_TRUE(handle_post_msg_);
  }

  const ServerLibrary server_;
  HandlePostMsgFunction handle_post_msg_ = nullptr;
};

TEST_F(HostThread, IgnoresAMessageWithoutAHandler) {
  handle_post_msg_(0, nullptr);
  handle_post_msg_(1, nullptr);
  handle_post_msg_(UINT32_MAX, nullptr);
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_F(HostThread, IgnoresAddressesThatAreNoHandlers) {
  int on_the_stack = 0;
  const std::uintptr_t addresses[] = {1,
                                      8,
                                      0x10000,
                                      reinterpret_cast<std::uintptr_t>(&on_the_stack),
                                      reinterpret_cast<std::uintptr_t>(server_.module()),
                                      UINTPTR_MAX};
  for (const std::uintptr_t address : addresses) {
    for (const std::uint32_t identifier : {0U, 1U, UINT32_MAX}) {
      handle_post_msg_(identifier, reinterpret_cast<void*>(address));
    }
  }
  EXPECT_EQ(on_the_stack, 0);
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_F(HostThread, TakesMessagesOnAnyThread) {
  for (int i = 0; i < 4; ++i) {
    std::jthread([this] { handle_post_msg_(1, reinterpret_cast<void*>(0x1234)); });
  }
  EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

}  // namespace
}  // namespace contract
