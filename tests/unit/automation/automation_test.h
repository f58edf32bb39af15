// The automation objects over a fake bridge, as a host holds them.
#pragma once

#include <windows.h>

#include <comutil.h>
#include <wrl/client.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "KZCEFComWrapper.h"
#include "automation/application.h"
#include "automation/kzcef_com.h"
#include "com/com_object.h"
#include "fake_bridge.h"
#include "mock_handler.h"

namespace kzcef::testing {

using Microsoft::WRL::ComPtr;

inline const HWND kParent = reinterpret_cast<HWND>(0x500);

class AutomationTest : public ::testing::Test {
 protected:
  AutomationTest() { registry->set_bridge(&bridge); }

  static ComPtr<IKZCEFComApplication2> NewApplication() {
    ComPtr<IKZCEFComApplication2> created;
    CreateComObject<CKZCEFComApplication>(nullptr, IID_PPV_ARGS(created.GetAddressOf()));
    return created;
  }

  ComPtr<IKZCEFComBrowser> NewBrowser() {
    ComPtr<IKZCEFComBrowser> browser;
    EXPECT_EQ(application->GetKzCEFBrowser(nullptr, 0, browser.GetAddressOf()), S_OK);
    EXPECT_TRUE(browser);
    return browser;
  }

  // The n-th such browser of a test is in FakeBridge::WindowOf(n).
  ComPtr<IKZCEFComBrowser> StartedBrowser() {
    auto browser = NewBrowser();
    EXPECT_EQ(browser->StartBrowser(reinterpret_cast<__int64>(kParent)), S_OK);
    return browser;
  }

  void Register(const ComPtr<IKZCEFComBrowser>& browser, IKZCEFComBrowserHandler& handler) {
    EXPECT_EQ(application->RegisterKzCEFBrowserCallback(nullptr, 7, browser.Get(), &handler), S_OK);
  }
  void Unregister(const ComPtr<IKZCEFComBrowser>& browser, IKZCEFComBrowserHandler& handler) {
    EXPECT_EQ(application->UnRegisterKzCEFBrowserCallback(nullptr, 7, browser.Get(), &handler),
              S_OK);
  }

  static __int64 Value(HWND window) { return reinterpret_cast<__int64>(window); }

  FakeBridge bridge;
  const std::shared_ptr<KZCEFCom> registry = KZCEFCom::Get();
  const ComPtr<IKZCEFComApplication2> application = NewApplication();
  // Of the first two browsers that are started.
  const HWND first_window = FakeBridge::WindowOf(1);
  const HWND second_window = FakeBridge::WindowOf(2);
};

}  // namespace kzcef::testing
