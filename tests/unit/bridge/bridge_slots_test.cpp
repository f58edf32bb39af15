// The bridge interface is a binary contract: the order of its operations.
#include <gtest/gtest.h>

#include "bridge/kz_cef_bridge.h"
#include "unit/handler/virtual_slot.h"

namespace kzcef {
namespace {

using testing::VirtualSlot;

TEST(BridgeSlotsTest, StandInOrder) {
  EXPECT_EQ(VirtualSlot(&kzCefBridge::Shutdown), 0);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::Reserved1), 1);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::Reserved2), 2);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::StartBrowser), 3);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::StartPopupBrowser), 4);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::GetWindowHandle), 5);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::LoadURL), 6);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::GetURL), 7);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::ExecuteJS), 8);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::AddJSHandler), 9);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::RemoveJSHandler), 10);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::ResizeBrowser), 11);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::GetInstance), 12);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::SetInstance), 13);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::PrepareCookieAccess), 14);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::GetUrlCookies), 15);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::SetUrlCookies), 16);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::Refresh), 17);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::DestroyInstance), 18);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::ResizeBrowserRect), 19);
  EXPECT_EQ(VirtualSlot(&kzCefBridge::GetCookiesSync), 20);
}

}  // namespace
}  // namespace kzcef
