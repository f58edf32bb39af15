// An owner of a client handler that expects what it is told.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "handler/kz_cef_client_handler.h"

namespace kzcef::testing {

class MockDelegate : public kzCefClientHandler::Delegate {
 public:
  MOCK_METHOD(void, OnBrowserCreated, (CefRefPtr<CefBrowser>), (override));
  MOCK_METHOD(void, OnBrowserClosing, (CefRefPtr<CefBrowser>), (override));
  MOCK_METHOD(void, OnBrowserClosed, (CefRefPtr<CefBrowser>), (override));
  MOCK_METHOD(void, OnSetAddress, (const std::string&), (override));
  MOCK_METHOD(void, OnSetTitle, (const std::string&), (override));
  MOCK_METHOD(void, OnSetFavicon, (CefRefPtr<CefImage>), (override));
  MOCK_METHOD(void, OnSetFullscreen, (bool), (override));
  MOCK_METHOD(void, OnAutoResize, (const CefSize&), (override));
  MOCK_METHOD(void, OnSetLoadingState, (bool, bool, bool), (override));
  MOCK_METHOD(void, OnSetDraggableRegions, (const std::vector<CefDraggableRegion>&), (override));
  MOCK_METHOD(void, OnTakeFocus, (bool), (override));
  MOCK_METHOD(void, OnBeforeContextMenu, (CefRefPtr<CefMenuModel>), (override));
};

}  // namespace kzcef::testing
