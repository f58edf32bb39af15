// Birth and death of browsers, and the decision about popups.
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/network_emulation.h"
#include "handler/shell_open.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {
namespace {

// Whether a popup is not to be opened. Asks the host, and does with the URL what happens instead.
bool RefusesPopup(const CefRefPtr<CefBrowser>& opener, const CefString& target_url) {
  const std::wstring url = target_url.ToWString();
  // The host sees a plain 1 here, not VARIANT_TRUE.
  VARIANT_BOOL proceed = 1;
  VARIANT_BOOL open_externally = VARIANT_FALSE;
  RaiseContained(opener, [&](HostNotifications& host, HWND window) {
    host.BeforePopupNotify(window, url, &open_externally, &proceed);
  });
  if (proceed == VARIANT_FALSE) {
    return true;
  }
  if (open_externally != VARIANT_FALSE) {
    OpenExternally(url);
    return true;
  }
  // A page opens a blank window to print into it; its own browser's print dialogue serves better.
  if (url.starts_with(L"about:blank")) {
    opener->GetHost()->Print();
    return true;
  }
  return false;
}

}  // namespace

void kzCefClientHandler::OnAfterCreated(CefRefPtr<CefBrowser> browser) {
  CEF_REQUIRE_UI_THREAD();
  ++browser_count_;
  if (!message_router_) {
    message_router_ = CefMessageRouterBrowserSide::Create(CefMessageRouterConfig());
  }
  if (offline_) {
    EmulateNetwork(browser, offline_);
  }
  if (Delegate* const owner = delegate()) {
    owner->OnBrowserCreated(browser);
  }
  RaiseContained(browser,
                 [](HostNotifications& host, HWND window) { host.BrowserCreatedNotify(window); });
}

bool kzCefClientHandler::AddMessageHandler(
    std::unique_ptr<CefMessageRouterBrowserSide::Handler> handler) {
  CEF_REQUIRE_UI_THREAD();
  if (!message_router_ || !message_router_->AddHandler(handler.get(), false)) {
    return false;
  }
  message_handler_set_.insert(std::move(handler));
  return true;
}

bool kzCefClientHandler::DoClose(CefRefPtr<CefBrowser> browser) {
  CEF_REQUIRE_UI_THREAD();
  if (Delegate* const owner = delegate()) {
    owner->OnBrowserClosing(browser);
  }
  return false;
}

void kzCefClientHandler::OnBeforeClose(CefRefPtr<CefBrowser> browser) {
  CEF_REQUIRE_UI_THREAD();
  if (--browser_count_ == 0) {
    while (!message_handler_set_.empty()) {
      // Taken out first: it is freed only after the router has let go of it.
      const auto node = message_handler_set_.extract(message_handler_set_.begin());
      message_router_->RemoveHandler(node.value().get());
    }
    message_router_ = nullptr;
  }
  if (Delegate* const owner = delegate()) {
    owner->OnBrowserClosed(browser);
  }
}

bool kzCefClientHandler::OnBeforePopup(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame> /*frame*/,
    const CefString& target_url,
    const CefString& /*target_frame_name*/,
    CefLifeSpanHandler::WindowOpenDisposition /*target_disposition*/,
    bool /*user_gesture*/,
    const CefPopupFeatures& /*popup_features*/,
    CefWindowInfo& /*window_info*/,
    CefRefPtr<CefClient>& /*client*/,
    CefBrowserSettings& /*settings*/,
    CefRefPtr<CefDictionaryValue>& /*extra_info*/,
    bool* /*no_javascript_access*/) {
  CEF_REQUIRE_UI_THREAD();
  return Contained([&] { return RefusesPopup(browser, target_url); }, /*otherwise=*/false);
}

}  // namespace kzcef
