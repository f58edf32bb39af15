// A client handler with an owner, a host and a browser, all of them watched.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <string>

#include "handler/kz_cef_client_handler.h"
#include "recording_cef/fake_browser.h"
#include "recording_cef/recording_cef.h"
#include "unit/handler/mock_delegate.h"
#include "unit/handler/mock_host_notifications.h"

namespace kzcef::testing {

// Owner and host are strict: a call that a test does not expect fails it.
class HandlerTest : public ::testing::Test {
 protected:
  // No window stands behind these handles; they are only passed on.
  HWND window() const { return reinterpret_cast<HWND>(0x5004); }
  HWND popup_window() const { return reinterpret_cast<HWND>(0x5008); }

  CefRefPtr<CefFrame> frame() { return browser_->main_frame; }
  CefRefPtr<CefFrame> sub_frame() { return sub_frame_; }
  recording_cef::FakeBrowserHost& browser_host() { return *browser_->host; }

  // What the browser was last asked of its network, and no more often than `times`.
  void ExpectEmulation(bool offline, size_t times) {
    ASSERT_EQ(browser_host().devtools_calls.size(), times);
    const recording_cef::DevToolsCall& call = browser_host().devtools_calls.back();
    EXPECT_EQ(call.message_id, 0);
    EXPECT_EQ(call.method.ToString(), "Network.emulateNetworkConditions");
    ASSERT_EQ(call.params->GetSize(), 4u);
    EXPECT_EQ(call.params->GetType("offline"), VTYPE_BOOL);
    EXPECT_EQ(call.params->GetBool("offline"), offline);
    for (const char* const key : {"latency", "downloadThroughput", "uploadThroughput"}) {
      EXPECT_EQ(call.params->GetType(key), VTYPE_DOUBLE) << key;
      EXPECT_EQ(call.params->GetDouble(key), 0.0) << key;
    }
  }
  // The browser was cut off from the network, once.
  void ExpectCutOff() { ExpectEmulation(true, 1); }

  recording_cef::RecordingCef& cef_ = recording_cef::RecordingCef::Get();
  PublishedMockHost host_;
  ::testing::StrictMock<MockDelegate> owner_;
  const CefRefPtr<recording_cef::FakeBrowser> browser_ =
      new recording_cef::FakeBrowser(1, window());
  const CefRefPtr<recording_cef::FakeFrame> sub_frame_ = browser_->AddFrame("frame-2", "sub");
  const CefRefPtr<recording_cef::FakeBrowser> popup_ =
      new recording_cef::FakeBrowser(2, popup_window());
  CefRefPtr<kzCefClientHandler> handler_ =
      new kzCefClientHandler(&owner_, false, "http://start.test/");
};

}  // namespace kzcef::testing
