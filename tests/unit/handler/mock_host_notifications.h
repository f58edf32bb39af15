// A host that expects what it is told.
#pragma once

#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "handler/host_notifications.h"

namespace kzcef::testing {

class MockHostNotifications : public HostNotifications {
 public:
  bool IsHostClosing() const override { return closing; }
  bool ExchangeProcessing(bool value) override {
    exchanges.push_back(value);
    return processing.exchange(value);
  }

  bool IsAnyoneListening() const override { return listening; }

  MOCK_METHOD(void, AddressChangeNotify, (HWND, const std::wstring&), (override));
  MOCK_METHOD(void,
              BeforeBrowseNotify,
              (HWND, const std::wstring&, VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL*),
              (override));
  MOCK_METHOD(void, BeforeContextMenuNotify, (HWND, VARIANT_BOOL*), (override));
  MOCK_METHOD(void, BeforeDownloadNotify, (HWND, BSTR*, VARIANT_BOOL*, VARIANT_BOOL*), (override));
  MOCK_METHOD(void,
              BeforePopupNotify,
              (HWND, const std::wstring&, VARIANT_BOOL*, VARIANT_BOOL*),
              (override));
  MOCK_METHOD(void, BeforeResourceLoadNotify, (HWND, BSTR*, BSTR*), (override));
  MOCK_METHOD(void, BrowserCreatedNotify, (HWND), (override));
  MOCK_METHOD(void, DownloadCompletedNotify, (HWND, const std::wstring&), (override));
  MOCK_METHOD(void, DownloadUpdatedNotify, (HWND, const std::wstring&, long, long), (override));
  MOCK_METHOD(void, EscapeKeyNotify, (HWND), (override));
  MOCK_METHOD(void,
              GetAuthCredentialsNotify,
              (HWND, BSTR*, VARIANT_BOOL*, BSTR*, long, BSTR*, BSTR*, VARIANT_BOOL*, BSTR*, BSTR*),
              (override));
  MOCK_METHOD(void, KeyStrokeNotify, (HWND, long, VARIANT_BOOL*), (override));
  MOCK_METHOD(void, LoadEndNotify, (HWND, long), (override));
  MOCK_METHOD(void, LoadStartNotify, (HWND, long), (override));
  MOCK_METHOD(void,
              LoadingStateChangeNotify,
              (HWND, VARIANT_BOOL, VARIANT_BOOL, VARIANT_BOOL),
              (override));
  MOCK_METHOD(void,
              ResourceLoadCompleteNotify,
              (HWND, const std::wstring&, const std::wstring&),
              (override));
  MOCK_METHOD(void, ResourceRedirectNotify, (HWND, const std::wstring&, BSTR*, long), (override));
  MOCK_METHOD(void, ResourceResponseNotify, (HWND, BSTR*, VARIANT_BOOL*, long), (override));

  std::atomic<bool> closing = false;
  std::atomic<bool> listening = true;
  std::atomic<bool> processing = false;
  // What the processing flag was set to, in order.
  std::vector<bool> exchanges;
};

// Publishes a strict mock for its lifetime: a notification that is not expected fails the test.
class PublishedMockHost {
 public:
  PublishedMockHost() { PublishHostNotifications(mock_); }
  ~PublishedMockHost() { PublishHostNotifications(nullptr); }
  PublishedMockHost(const PublishedMockHost&) = delete;
  PublishedMockHost& operator=(const PublishedMockHost&) = delete;

  MockHostNotifications& operator*() const { return *mock_; }
  MockHostNotifications* operator->() const { return mock_.get(); }

 private:
  const std::shared_ptr<MockHostNotifications> mock_ =
      std::make_shared<::testing::StrictMock<MockHostNotifications>>();
};

}  // namespace kzcef::testing
