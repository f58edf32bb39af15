// Loads: their state, start, end and failure.
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/network_emulation.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {

void kzCefClientHandler::OnLoadingStateChange(CefRefPtr<CefBrowser> /*browser*/,
                                              bool is_loading,
                                              bool can_go_back,
                                              bool can_go_forward) {
  CEF_REQUIRE_UI_THREAD();
  if (!is_loading) {
    initial_navigation_ = false;
  }
  // The owner raises the host's notification: it knows which browser is its own.
  if (Delegate* const owner = delegate()) {
    owner->OnSetLoadingState(is_loading, can_go_back, can_go_forward);
  }
}

void kzCefClientHandler::OnLoadStart(CefRefPtr<CefBrowser> browser,
                                     CefRefPtr<CefFrame> /*frame*/,
                                     TransitionType transition_type) {
  CEF_REQUIRE_UI_THREAD();
  RaiseContained(browser, [=](HostNotifications& host, HWND window) {
    host.LoadStartNotify(window, static_cast<long>(transition_type));
  });
}

void kzCefClientHandler::OnLoadEnd(CefRefPtr<CefBrowser> browser,
                                   CefRefPtr<CefFrame> /*frame*/,
                                   int http_status_code) {
  CEF_REQUIRE_UI_THREAD();
  RaiseContained(browser, [=](HostNotifications& host, HWND window) {
    host.LoadEndNotify(window, http_status_code);
  });
}

void kzCefClientHandler::OnLoadError(CefRefPtr<CefBrowser> /*browser*/,
                                     CefRefPtr<CefFrame> /*frame*/,
                                     ErrorCode /*error_code*/,
                                     const CefString& /*error_text*/,
                                     const CefString& /*failed_url*/) {
  // Deliberately nothing, whatever the error: no error page is loaded and the host is not told.
  // Many errors are no failures at all (a load aborted by a download, a scheme that another program
  // handles).
}

void kzCefClientHandler::OnDocumentAvailableInMainFrame(CefRefPtr<CefBrowser> browser) {
  CEF_REQUIRE_UI_THREAD();
  // The emulation does not outlive a renderer process, and this document may come from a new one.
  if (offline_) {
    EmulateNetwork(browser, offline_);
  }
}

}  // namespace kzcef
