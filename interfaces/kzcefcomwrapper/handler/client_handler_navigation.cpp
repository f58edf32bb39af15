// Navigations, and what becomes of a page whose process is gone.
#include "handler/accept_language.h"
#include "handler/ascii_case.h"
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/traced_url.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {
namespace {

// Loading it is a deliberate test of what a crash does.
constexpr char kCrashPage[] = "chrome://crash";

VARIANT_BOOL Flag(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

}  // namespace

bool kzCefClientHandler::OnBeforeBrowse(CefRefPtr<CefBrowser> browser,
                                        CefRefPtr<CefFrame> frame,
                                        CefRefPtr<CefRequest> request,
                                        bool user_gesture,
                                        bool is_redirect) {
  CEF_REQUIRE_UI_THREAD();
  if (message_router_) {
    message_router_->OnBeforeBrowse(browser, frame);
  }
  Contained(AlignAcceptLanguages);
  VARIANT_BOOL cancel_navigation = VARIANT_FALSE;
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    host.BeforeBrowseNotify(window, request->GetURL().ToWString(), Flag(user_gesture),
                            Flag(is_redirect), &cancel_navigation);
  });
  if (cancel_navigation != VARIANT_FALSE) {
    return true;
  }
  TraceUrl("OnBeforeBrowse : ", request);
  return false;
}

void kzCefClientHandler::OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser,
                                                   TerminationStatus /*status*/) {
  CEF_REQUIRE_UI_THREAD();
  if (message_router_) {
    message_router_->OnRenderProcessTerminated(browser);
  }
  if (startup_url_.empty() || startup_url_ == kCrashPage) {
    return;
  }
  Contained([&] {
    const CefRefPtr<CefFrame> frame = browser->GetMainFrame();
    // The site that crashed would only crash again.
    if (frame && !LowerAscii(frame->GetURL().ToString()).starts_with(LowerAscii(startup_url_))) {
      frame->LoadURL(startup_url_);
    }
  });
}

}  // namespace kzcef
