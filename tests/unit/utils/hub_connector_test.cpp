// Whether the hub is on. Each test is a process of its own, as the first query settles that.

#include "utils/hub_connector.h"

#include <gtest/gtest.h>

#include "utils/process_settings.h"

namespace kzcef {
namespace {

TEST(Hub, IsOffWithoutAPort) {
  EXPECT_EQ(GetHubPort(), -1);
  EXPECT_FALSE(IsHubOn());
}

TEST(Hub, IsOnWithPortZero) {
  SetConfiguredHubPort(0);
  EXPECT_TRUE(IsHubOn());
  EXPECT_EQ(GetHubPort(), 0);
}

TEST(Hub, StaysOffOnceItWasAskedFor) {
  EXPECT_FALSE(IsHubOn());
  SetConfiguredHubPort(8080);
  EXPECT_FALSE(IsHubOn());
  EXPECT_EQ(GetHubPort(), 8080);
}

TEST(Hub, StaysOnOnceItWasAskedFor) {
  SetConfiguredHubPort(8080);
  EXPECT_TRUE(IsHubOn());
  SetConfiguredHubPort(-1);
  EXPECT_TRUE(IsHubOn());
}

}  // namespace
}  // namespace kzcef
