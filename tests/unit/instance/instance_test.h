// An instance in a host window, on a CEF without an engine.
#pragma once

#include <gmock/gmock.h>
#include <objbase.h>

#include <string>
#include <vector>

#include "recording_cef/fake_browser.h"
#include "recording_cef/recording_cef.h"
#include "runtime/kz_cef_instance.h"
#include "unit/handler/mock_delegate.h"
#include "unit/handler/mock_host_notifications.h"
#include "unit/instance/test_window.h"

namespace kzcef::testing {

// The host is strict: a notification that a test does not expect fails it. A browser exists from
// the start, but nobody knows of it before a test hands it over.
class BrowserInWindowTest : public ::testing::Test {
 protected:
  BrowserInWindowTest() { EXPECT_EQ(CoInitialize(nullptr), S_OK); }
  ~BrowserInWindowTest() override { CoUninitialize(); }

  // The browsers asked of CEF.
  const std::vector<recording_cef::Creation>& requests() const { return cef_.creations; }
  // The client handler of the last of them.
  CefRefPtr<kzCefClientHandler> requested_handler() const {
    return static_cast<kzCefClientHandler*>(cef_.creations.back().client.get());
  }
  // Gives the references of the requests back.
  void ForgetRequests() { cef_.creations.clear(); }

  recording_cef::FakeFrame& frame() { return *browser_->main_frame; }
  std::vector<std::string> loaded_urls() {
    std::vector<std::string> urls;
    for (const CefString& url : frame().loaded_urls) {
      urls.push_back(url.ToString());
    }
    return urls;
  }

  recording_cef::RecordingCef& cef_ = recording_cef::RecordingCef::Get();
  PublishedMockHost host_;
  // The host's.
  TestWindow parent_{640, 480};
  // The browser's.
  TestWindow window_{640, 480};
  const CefRefPtr<recording_cef::FakeBrowser> browser_ =
      new recording_cef::FakeBrowser(7, window_.handle());
};

class InstanceTest : public BrowserInWindowTest {
 protected:
  // Brings the instance to life with the browser, and returns its client handler.
  CefRefPtr<kzCefClientHandler> StartWithBrowser() {
    EXPECT_EQ(instance_.CreateBrowser(parent_.handle(), "http://a.test/"), 1);
    instance_.OnBrowserCreated(browser_);
    return requested_handler();
  }

  kzCefInstance instance_;
};

// The bytes of a binary value as text.
inline std::string TextOf(const CefRefPtr<CefBinaryValue>& binary) {
  std::string text(binary->GetSize(), '\0');
  EXPECT_EQ(binary->GetData(text.data(), text.size(), 0), text.size());
  return text;
}

}  // namespace kzcef::testing
