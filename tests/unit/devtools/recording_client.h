#pragma once

#include <functional>
#include <mutex>
#include <vector>

#include "event_log.h"
#include "include/cef_client.h"

namespace cefedition {

/// A client that writes down what it hears, and answers as the test says.
class RecordingClient : public CefClient,
                        public CefLifeSpanHandler,
                        public CefLoadHandler,
                        public CefDisplayHandler,
                        public CefRequestHandler,
                        public CefJSDialogHandler {
 public:
  explicit RecordingClient(EventLog* log, const std::string& name = {}) : log_(log), name_(name) {}

  // What to answer; set before the browser is made, or inside a callback.
  bool take_dialogs = false;
  bool cancel_close = false;
  bool cancel_popups = false;
  bool log_titles = true;
  std::function<bool(const std::string& url)> cancel_navigation;
  std::function<void(CefRefPtr<CefBrowser>)> on_created;
  std::function<void()> on_terminated;
  /// Hears of the browsers' requests; set before the first browser.
  CefRefPtr<CefResourceRequestHandler> resources;
  bool disable_default_handling = false;
  /// Hears of the browsers' downloads; none without it.
  CefRefPtr<CefDownloadHandler> downloads;
  /// Answer what servers and proxies demand, and what certificates do not hold. Without them the
  /// client does not care.
  std::function<bool(const std::string& demand, CefRefPtr<CefAuthCallback>)> on_credentials;
  std::function<bool(cef_errorcode_t, CefRefPtr<CefSSLInfo>, CefRefPtr<CefCallback>)>
      on_certificate;

  /// The browsers that were created and not closed, oldest first.
  std::vector<CefRefPtr<CefBrowser>> Browsers() const;
  CefRefPtr<CefBrowser> First() const;
  CefRefPtr<CefJSDialogCallback> dialog() const;

  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return this; }
  CefRefPtr<CefLoadHandler> GetLoadHandler() override { return this; }
  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return this; }
  CefRefPtr<CefRequestHandler> GetRequestHandler() override { return this; }
  CefRefPtr<CefJSDialogHandler> GetJSDialogHandler() override { return this; }
  CefRefPtr<CefDownloadHandler> GetDownloadHandler() override { return downloads; }

  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override;
  bool DoClose(CefRefPtr<CefBrowser> browser) override;
  void OnBeforeClose(CefRefPtr<CefBrowser> browser) override;
  bool OnBeforePopup(CefRefPtr<CefBrowser> browser,
                     CefRefPtr<CefFrame> frame,
                     const CefString& target_url,
                     const CefString& target_frame_name,
                     cef_window_open_disposition_t target_disposition,
                     bool user_gesture,
                     const CefPopupFeatures& popupFeatures,
                     CefWindowInfo& windowInfo,
                     CefRefPtr<CefClient>& client,
                     CefBrowserSettings& settings,
                     CefRefPtr<CefDictionaryValue>& extra_info,
                     bool* no_javascript_access) override;

  void OnLoadingStateChange(CefRefPtr<CefBrowser> browser,
                            bool isLoading,
                            bool canGoBack,
                            bool canGoForward) override;
  void OnLoadStart(CefRefPtr<CefBrowser> browser,
                   CefRefPtr<CefFrame> frame,
                   TransitionType transition_type) override;
  void OnLoadEnd(CefRefPtr<CefBrowser> browser,
                 CefRefPtr<CefFrame> frame,
                 int httpStatusCode) override;
  void OnLoadError(CefRefPtr<CefBrowser> browser,
                   CefRefPtr<CefFrame> frame,
                   ErrorCode errorCode,
                   const CefString& errorText,
                   const CefString& failedUrl) override;

  void OnAddressChange(CefRefPtr<CefBrowser> browser,
                       CefRefPtr<CefFrame> frame,
                       const CefString& url) override;
  void OnTitleChange(CefRefPtr<CefBrowser> browser, const CefString& title) override;
  void OnFaviconURLChange(CefRefPtr<CefBrowser> browser,
                          const std::vector<CefString>& icon_urls) override;
  void OnFullscreenModeChange(CefRefPtr<CefBrowser> browser, bool fullscreen) override;
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser,
                        cef_log_severity_t level,
                        const CefString& message,
                        const CefString& source,
                        int line) override;

  bool OnBeforeBrowse(CefRefPtr<CefBrowser> browser,
                      CefRefPtr<CefFrame> frame,
                      CefRefPtr<CefRequest> request,
                      bool user_gesture,
                      bool is_redirect) override;
  CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(CefRefPtr<CefBrowser> browser,
                                                                 CefRefPtr<CefFrame> frame,
                                                                 CefRefPtr<CefRequest> request,
                                                                 bool is_navigation,
                                                                 bool is_download,
                                                                 const CefString& request_initiator,
                                                                 bool& disable_default) override;
  bool GetAuthCredentials(CefRefPtr<CefBrowser> browser,
                          const CefString& origin_url,
                          bool isProxy,
                          const CefString& host,
                          int port,
                          const CefString& realm,
                          const CefString& scheme,
                          CefRefPtr<CefAuthCallback> callback) override;
  bool OnCertificateError(CefRefPtr<CefBrowser> browser,
                          cef_errorcode_t cert_error,
                          const CefString& request_url,
                          CefRefPtr<CefSSLInfo> ssl_info,
                          CefRefPtr<CefCallback> callback) override;
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser, TerminationStatus status) override;

  bool OnJSDialog(CefRefPtr<CefBrowser> browser,
                  const CefString& origin_url,
                  JSDialogType dialog_type,
                  const CefString& message_text,
                  const CefString& default_prompt_text,
                  CefRefPtr<CefJSDialogCallback> callback,
                  bool& suppress_message) override;
  bool OnBeforeUnloadDialog(CefRefPtr<CefBrowser> browser,
                            const CefString& message_text,
                            bool is_reload,
                            CefRefPtr<CefJSDialogCallback> callback) override;

 private:
  void Add(CefRefPtr<CefBrowser> browser, const std::string& text);

  EventLog* const log_;
  const std::string name_;
  mutable std::mutex lock_;
  std::vector<CefRefPtr<CefBrowser>> browsers_;
  CefRefPtr<CefJSDialogCallback> dialog_;

  IMPLEMENT_REFCOUNTING(RecordingClient);
};

}  // namespace cefedition
