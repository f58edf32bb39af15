#include "recording_client.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "include/wrapper/cef_helpers.h"
#include "recording_resources.h"

namespace cefedition {
namespace {

std::string Flag(const char* name, bool value) {
  return value ? std::string(" ") + name : std::string();
}

std::string FrameName(CefRefPtr<CefFrame> frame) {
  return frame->IsMain() ? "main" : "sub:" + frame->GetName().ToString();
}

}  // namespace

// Texts begin with the client's name if it has one. Popups are marked.
void RecordingClient::Add(CefRefPtr<CefBrowser> browser, const std::string& text) {
  EXPECT_TRUE(CefCurrentlyOn(TID_UI)) << text;
  log_->Add(name_ + (browser->IsPopup() ? "popup " : "") + text);
}

std::vector<CefRefPtr<CefBrowser>> RecordingClient::Browsers() const {
  std::lock_guard hold(lock_);
  return browsers_;
}

CefRefPtr<CefBrowser> RecordingClient::First() const {
  std::lock_guard hold(lock_);
  return browsers_.empty() ? nullptr : browsers_.front();
}

CefRefPtr<CefJSDialogCallback> RecordingClient::dialog() const {
  std::lock_guard hold(lock_);
  return dialog_;
}

void RecordingClient::OnAfterCreated(CefRefPtr<CefBrowser> browser) {
  {
    std::lock_guard hold(lock_);
    browsers_.push_back(browser);
  }
  Add(browser, "created");
  if (on_created) {
    on_created(browser);
  }
}

bool RecordingClient::DoClose(CefRefPtr<CefBrowser> browser) {
  Add(browser, "do-close");
  return cancel_close;
}

void RecordingClient::OnBeforeClose(CefRefPtr<CefBrowser> browser) {
  {
    std::lock_guard hold(lock_);
    std::erase_if(browsers_, [&](const auto& known) { return known->IsSame(browser); });
  }
  Add(browser, "closed");
}

bool RecordingClient::OnBeforePopup(CefRefPtr<CefBrowser> browser,
                                    CefRefPtr<CefFrame> frame,
                                    const CefString& target_url,
                                    const CefString& target_frame_name,
                                    cef_window_open_disposition_t target_disposition,
                                    bool user_gesture,
                                    const CefPopupFeatures& popupFeatures,
                                    CefWindowInfo&,
                                    CefRefPtr<CefClient>&,
                                    CefBrowserSettings&,
                                    CefRefPtr<CefDictionaryValue>&,
                                    bool*) {
  Add(browser, "before-popup " + FrameName(frame) + " " + target_url.ToString() +
                   " name=" + target_frame_name.ToString() +
                   Flag("window", target_disposition == CEF_WOD_NEW_POPUP) +
                   Flag("gesture", user_gesture) +
                   (popupFeatures.widthSet ? " width=" + std::to_string(popupFeatures.width) : ""));
  return cancel_popups;
}

void RecordingClient::OnLoadingStateChange(CefRefPtr<CefBrowser> browser,
                                           bool isLoading,
                                           bool canGoBack,
                                           bool canGoForward) {
  Add(browser,
      (isLoading ? "loading" : "idle") + Flag("back", canGoBack) + Flag("forward", canGoForward));
}

void RecordingClient::OnLoadStart(CefRefPtr<CefBrowser> browser,
                                  CefRefPtr<CefFrame> frame,
                                  TransitionType transition_type) {
  char transition[16];
  std::snprintf(transition, sizeof(transition), "0x%x", static_cast<unsigned>(transition_type));
  Add(browser, "start " + FrameName(frame) + " " + transition);
}

void RecordingClient::OnLoadEnd(CefRefPtr<CefBrowser> browser,
                                CefRefPtr<CefFrame> frame,
                                int httpStatusCode) {
  Add(browser, "end " + FrameName(frame) + " " + std::to_string(httpStatusCode));
}

void RecordingClient::OnLoadError(CefRefPtr<CefBrowser> browser,
                                  CefRefPtr<CefFrame> frame,
                                  ErrorCode errorCode,
                                  const CefString& errorText,
                                  const CefString& failedUrl) {
  Add(browser, "error " + FrameName(frame) + " " + std::to_string(errorCode) + " " +
                   errorText.ToString() + " " + failedUrl.ToString());
}

void RecordingClient::OnAddressChange(CefRefPtr<CefBrowser> browser,
                                      CefRefPtr<CefFrame> frame,
                                      const CefString& url) {
  EXPECT_EQ(frame->GetURL().ToString(), url.ToString());
  Add(browser, "address " + url.ToString());
}

void RecordingClient::OnTitleChange(CefRefPtr<CefBrowser> browser, const CefString& title) {
  Add(browser, "title " + title.ToString());
}

void RecordingClient::OnFaviconURLChange(CefRefPtr<CefBrowser> browser,
                                         const std::vector<CefString>& icon_urls) {
  std::string text = "icons";
  for (const CefString& url : icon_urls) {
    text += " " + url.ToString();
  }
  Add(browser, text);
}

void RecordingClient::OnFullscreenModeChange(CefRefPtr<CefBrowser> browser, bool fullscreen) {
  Add(browser, fullscreen ? "fullscreen on" : "fullscreen off");
}

bool RecordingClient::OnConsoleMessage(CefRefPtr<CefBrowser> browser,
                                       cef_log_severity_t level,
                                       const CefString& message,
                                       const CefString& source,
                                       int line) {
  Add(browser, "console " + std::to_string(level) + " [" + message.ToString() + "] " +
                   source.ToString() + ":" + std::to_string(line));
  return false;
}

bool RecordingClient::OnBeforeBrowse(CefRefPtr<CefBrowser> browser,
                                     CefRefPtr<CefFrame> frame,
                                     CefRefPtr<CefRequest> request,
                                     bool user_gesture,
                                     bool is_redirect) {
  const std::string url = request->GetURL().ToString();
  Add(browser, "before-browse " + FrameName(frame) + " " + request->GetMethod().ToString() + " " +
                   url + Flag("gesture", user_gesture) + Flag("redirect", is_redirect));
  return cancel_navigation && cancel_navigation(url);
}

// Written down only where requests are the subject: other tests count what they load.
CefRefPtr<CefResourceRequestHandler> RecordingClient::GetResourceRequestHandler(
    CefRefPtr<CefBrowser>,
    CefRefPtr<CefFrame> frame,
    CefRefPtr<CefRequest> request,
    bool is_navigation,
    bool is_download,
    const CefString& request_initiator,
    bool& disable_default) {
  EXPECT_TRUE(CefCurrentlyOn(TID_IO));
  EXPECT_TRUE(request->IsReadOnly());
  if (resources || disable_default_handling) {
    log_->Add("wanted " + FrameName(frame) + " " + PathOf(request->GetURL()) +
              Flag("navigation", is_navigation) + Flag("download", is_download) +
              " from=" + request_initiator.ToString());
  }
  disable_default = disable_default_handling;
  return resources;
}

bool RecordingClient::GetAuthCredentials(CefRefPtr<CefBrowser>,
                                         const CefString& origin_url,
                                         bool isProxy,
                                         const CefString& host,
                                         int port,
                                         const CefString& realm,
                                         const CefString& scheme,
                                         CefRefPtr<CefAuthCallback> callback) {
  EXPECT_TRUE(CefCurrentlyOn(TID_IO));
  const std::string demand = std::string(isProxy ? "proxy " : "server ") + host.ToString() + ":" +
                             std::to_string(port) + " " + scheme.ToString() + " [" +
                             realm.ToString() + "] " + origin_url.ToString();
  log_->Add("credentials " + demand);
  return on_credentials && on_credentials(demand, callback);
}

bool RecordingClient::OnCertificateError(CefRefPtr<CefBrowser> browser,
                                         cef_errorcode_t cert_error,
                                         const CefString& request_url,
                                         CefRefPtr<CefSSLInfo> ssl_info,
                                         CefRefPtr<CefCallback> callback) {
  Add(browser, "certificate " + std::to_string(cert_error) + " " + request_url.ToString());
  return on_certificate && on_certificate(cert_error, ssl_info, callback);
}

void RecordingClient::OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser,
                                                TerminationStatus status) {
  Add(browser, "terminated " + std::to_string(status));
  if (on_terminated) {
    on_terminated();
  }
}

bool RecordingClient::OnJSDialog(CefRefPtr<CefBrowser> browser,
                                 const CefString&,
                                 JSDialogType dialog_type,
                                 const CefString& message_text,
                                 const CefString& default_prompt_text,
                                 CefRefPtr<CefJSDialogCallback> callback,
                                 bool&) {
  if (take_dialogs) {
    std::lock_guard hold(lock_);
    dialog_ = callback;
  }
  Add(browser, "dialog " + std::to_string(dialog_type) + " " + message_text.ToString() + " " +
                   default_prompt_text.ToString());
  return take_dialogs;
}

bool RecordingClient::OnBeforeUnloadDialog(CefRefPtr<CefBrowser> browser,
                                           const CefString&,
                                           bool,
                                           CefRefPtr<CefJSDialogCallback> callback) {
  if (take_dialogs) {
    std::lock_guard hold(lock_);
    dialog_ = callback;
  }
  Add(browser, "leaving");
  return take_dialogs;
}

}  // namespace cefedition
