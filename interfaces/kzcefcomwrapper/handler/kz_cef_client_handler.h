// The CEF client of an embedded browser and of the popups that CEF opens from it.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "handler/host_thread_dispatcher.h"
#include "include/cef_client.h"
#include "include/wrapper/cef_message_router.h"
#include "include/wrapper/cef_resource_manager.h"

namespace kzcef {

// Turns CEF's browser-process callbacks into calls on its owner (the delegate), notifications for
// the host's handlers, and decisions that CEF asks for. A missing delegate, a missing host or one
// that is closing is never an error: that part of a callback is left out.
//
// Callbacks arrive on CEF's UI thread; those of CefResourceRequestHandler, its getter and the
// request for credentials on CEF's IO thread. No error leaves a callback.
class kzCefClientHandler : public CefClient,
                           public CefContextMenuHandler,
                           public CefDisplayHandler,
                           public CefDownloadHandler,
                           public CefDragHandler,
                           public CefFocusHandler,
                           public CefKeyboardHandler,
                           public CefLifeSpanHandler,
                           public CefLoadHandler,
                           public CefRequestHandler,
                           public CefResourceRequestHandler {
 public:
  // The owner of a handler. Called on CEF's UI thread; the order of the operations is fixed.
  class Delegate {
   public:
    virtual void OnBrowserCreated(CefRefPtr<CefBrowser> browser) = 0;
    virtual void OnBrowserClosing(CefRefPtr<CefBrowser> browser) = 0;
    virtual void OnBrowserClosed(CefRefPtr<CefBrowser> browser) = 0;
    // Main frame only; UTF-8.
    virtual void OnSetAddress(const std::string& url) = 0;
    // UTF-8.
    virtual void OnSetTitle(const std::string& title) = 0;
    virtual void OnSetFavicon(CefRefPtr<CefImage>) {}
    virtual void OnSetFullscreen(bool fullscreen) = 0;
    virtual void OnAutoResize(const CefSize& new_size) = 0;
    virtual void OnSetLoadingState(bool is_loading, bool can_go_back, bool can_go_forward) = 0;
    virtual void OnSetDraggableRegions(const std::vector<CefDraggableRegion>& regions) = 0;
    virtual void OnTakeFocus(bool /*next*/) {}
    virtual void OnBeforeContextMenu(CefRefPtr<CefMenuModel>) {}
    virtual ~Delegate() = default;
  };

  // `delegate` is not owned and may be null; `startup_url` (UTF-8) is the browser's first URL.
  kzCefClientHandler(Delegate* delegate, bool creation_flag, const std::string& startup_url);
  ~kzCefClientHandler() override;
  kzCefClientHandler(const kzCefClientHandler&) = delete;
  kzCefClientHandler& operator=(const kzCefClientHandler&) = delete;

  // Asks CEF for a browser with this client; the browser arrives in OnAfterCreated. Returns false
  // when CEF does not take the request. Any thread of the browser process.
  bool CreateBrowser(const CefWindowInfo& window_info,
                     const CefBrowserSettings& settings,
                     const CefString& url);

  // Returns the owner, or null. Any thread.
  Delegate* delegate() const { return delegate_; }
  // Makes `delegate` the owner from the next callback on. Any thread.
  void SetDelegate(Delegate* delegate) { delegate_ = delegate; }
  // Stops calling `delegate`; does nothing when another one has become the owner meanwhile. Any
  // thread. A call already on its way on the UI thread is not waited for.
  void DetachDelegate(Delegate* delegate);

  // The object that parks the requests which need the host's thread; null at first. Set once,
  // before the first browser is asked for.
  CefRefPtr<HostThreadDispatcher> dispatcher() const { return dispatcher_; }
  void SetDispatcher(CefRefPtr<HostThreadDispatcher> dispatcher);

  // Installs `handler` on the message router and keeps it until the last browser has closed. While
  // there is no browser, frees `handler` and returns false. UI thread.
  bool AddMessageHandler(std::unique_ptr<CefMessageRouterBrowserSide::Handler> handler);

  bool creation_flag() const { return creation_flag_; }
  const std::string& startup_url() const { return startup_url_; }
  int32_t browser_count() const { return browser_count_; }
  bool first_console_message() const { return first_console_message_; }
  bool focus_on_editable_field() const { return focus_on_editable_field_; }
  bool initial_navigation() const { return initial_navigation_; }
  CefRefPtr<CefMessageRouterBrowserSide> message_router() const { return message_router_; }
  CefRefPtr<CefResourceManager> resource_manager() const { return resource_manager_; }

  // When set, CEF leaves the mouse cursor alone. UI thread.
  void set_mouse_cursor_change_disabled(bool disabled) { mouse_cursor_change_disabled_ = disabled; }
  // When set, browsers created from now on, and documents that become available, are cut off from
  // the network. UI thread.
  void set_offline(bool offline) { offline_ = offline; }
  // When set, the first favicon of a page is fetched for the owner. UI thread.
  void set_download_favicon_images(bool download) { download_favicon_images_ = download; }

  // CefClient
  CefRefPtr<CefContextMenuHandler> GetContextMenuHandler() override;
  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override;
  CefRefPtr<CefDownloadHandler> GetDownloadHandler() override;
  CefRefPtr<CefDragHandler> GetDragHandler() override;
  CefRefPtr<CefFocusHandler> GetFocusHandler() override;
  CefRefPtr<CefKeyboardHandler> GetKeyboardHandler() override;
  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override;
  CefRefPtr<CefLoadHandler> GetLoadHandler() override;
  CefRefPtr<CefRequestHandler> GetRequestHandler() override;
  // Returns true for what the message router takes; false for every other message, the renderer's
  // report on the focused node included.
  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                CefRefPtr<CefFrame> frame,
                                CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override;

  // CefContextMenuHandler
  // Without the environment variable of page_menu.h no page has a menu, whatever the host answers.
  void OnBeforeContextMenu(CefRefPtr<CefBrowser> browser,
                           CefRefPtr<CefFrame> frame,
                           CefRefPtr<CefContextMenuParams> params,
                           CefRefPtr<CefMenuModel> model) override;
  // Returns true for the handler's own commands, those without an action included.
  bool OnContextMenuCommand(CefRefPtr<CefBrowser> browser,
                            CefRefPtr<CefFrame> frame,
                            CefRefPtr<CefContextMenuParams> params,
                            int command_id,
                            EventFlags event_flags) override;

  // CefDisplayHandler
  // The owner is told of the main frame's address, the host of every frame's.
  void OnAddressChange(CefRefPtr<CefBrowser> browser,
                       CefRefPtr<CefFrame> frame,
                       const CefString& url) override;
  void OnTitleChange(CefRefPtr<CefBrowser> browser, const CefString& title) override;
  void OnFaviconURLChange(CefRefPtr<CefBrowser> browser,
                          const std::vector<CefString>& icon_urls) override;
  void OnFullscreenModeChange(CefRefPtr<CefBrowser> browser, bool fullscreen) override;
  // Always returns false: CEF writes the message to its own log as well.
  bool OnConsoleMessage(CefRefPtr<CefBrowser> browser,
                        cef_log_severity_t level,
                        const CefString& message,
                        const CefString& source,
                        int line) override;
  bool OnAutoResize(CefRefPtr<CefBrowser> browser, const CefSize& new_size) override;
  bool OnCursorChange(CefRefPtr<CefBrowser> browser,
                      CefCursorHandle cursor,
                      cef_cursor_type_t type,
                      const CefCursorInfo& custom_cursor_info) override;

  // CefDownloadHandler
  // Without the host's permission the callback is left alone, and CEF saves the download nowhere.
  void OnBeforeDownload(CefRefPtr<CefBrowser> browser,
                        CefRefPtr<CefDownloadItem> download_item,
                        const CefString& suggested_name,
                        CefRefPtr<CefBeforeDownloadCallback> callback) override;
  void OnDownloadUpdated(CefRefPtr<CefBrowser> browser,
                         CefRefPtr<CefDownloadItem> download_item,
                         CefRefPtr<CefDownloadItemCallback> callback) override;

  // CefDragHandler
  // Always returns false: what is dragged may enter the page.
  bool OnDragEnter(CefRefPtr<CefBrowser> browser,
                   CefRefPtr<CefDragData> drag_data,
                   DragOperationsMask mask) override;
  void OnDraggableRegionsChanged(CefRefPtr<CefBrowser> browser,
                                 CefRefPtr<CefFrame> frame,
                                 const std::vector<CefDraggableRegion>& regions) override;

  // CefFocusHandler
  void OnTakeFocus(CefRefPtr<CefBrowser> browser, bool next) override;
  // Always returns false: the browser may have the focus.
  bool OnSetFocus(CefRefPtr<CefBrowser> browser, FocusSource source) override;

  // CefKeyboardHandler
  // The host is told of keys pressed outside editable fields. Returns true when it handled the key,
  // which then does not reach the page.
  bool OnPreKeyEvent(CefRefPtr<CefBrowser> browser,
                     const CefKeyEvent& event,
                     CefEventHandle os_event,
                     bool* is_keyboard_shortcut) override;

  // CefLifeSpanHandler
  // Returns true to cancel the popup: the host refused it or had the URL opened elsewhere, or it
  // was a blank window, which stands for a wish to print the opener.
  bool OnBeforePopup(CefRefPtr<CefBrowser> browser,
                     CefRefPtr<CefFrame> frame,
                     const CefString& target_url,
                     const CefString& target_frame_name,
                     CefLifeSpanHandler::WindowOpenDisposition target_disposition,
                     bool user_gesture,
                     const CefPopupFeatures& popup_features,
                     CefWindowInfo& window_info,
                     CefRefPtr<CefClient>& client,
                     CefBrowserSettings& settings,
                     CefRefPtr<CefDictionaryValue>& extra_info,
                     bool* no_javascript_access) override;
  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override;
  bool DoClose(CefRefPtr<CefBrowser> browser) override;
  void OnBeforeClose(CefRefPtr<CefBrowser> browser) override;

  // CefLoadHandler
  void OnLoadingStateChange(CefRefPtr<CefBrowser> browser,
                            bool is_loading,
                            bool can_go_back,
                            bool can_go_forward) override;
  void OnLoadStart(CefRefPtr<CefBrowser> browser,
                   CefRefPtr<CefFrame> frame,
                   TransitionType transition_type) override;
  void OnLoadEnd(CefRefPtr<CefBrowser> browser,
                 CefRefPtr<CefFrame> frame,
                 int http_status_code) override;
  void OnLoadError(CefRefPtr<CefBrowser> browser,
                   CefRefPtr<CefFrame> frame,
                   ErrorCode error_code,
                   const CefString& error_text,
                   const CefString& failed_url) override;

  // CefRequestHandler
  // Returns true to cancel the navigation, when the host wants that.
  bool OnBeforeBrowse(CefRefPtr<CefBrowser> browser,
                      CefRefPtr<CefFrame> frame,
                      CefRefPtr<CefRequest> request,
                      bool user_gesture,
                      bool is_redirect) override;
  CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(
      CefRefPtr<CefBrowser> browser,
      CefRefPtr<CefFrame> frame,
      CefRefPtr<CefRequest> request,
      bool is_navigation,
      bool is_download,
      const CefString& request_initiator,
      bool& disable_default_handling) override;
  // Returns true for a proxy, and `callback` is answered then or later in every case. Returns false
  // for a server, whose challenge is left to CEF. IO thread.
  bool GetAuthCredentials(CefRefPtr<CefBrowser> browser,
                          const CefString& origin_url,
                          bool is_proxy,
                          const CefString& host,
                          int port,
                          const CefString& realm,
                          const CefString& scheme,
                          CefRefPtr<CefAuthCallback> callback) override;
  // Returns true, and continues the request, for the one site whose own certificate is accepted;
  // every other site is refused, and nobody is asked.
  bool OnCertificateError(CefRefPtr<CefBrowser> browser,
                          cef_errorcode_t cert_error,
                          const CefString& request_url,
                          CefRefPtr<CefSSLInfo> ssl_info,
                          CefRefPtr<CefCallback> callback) override;
  // Returns false for a single certificate, which CEF then takes by itself, and true for any other
  // number: the user chooses, on the host's thread, and the request waits meanwhile. Without a
  // dispatcher CEF goes on with no certificate.
  bool OnSelectClientCertificate(CefRefPtr<CefBrowser> browser,
                                 bool isProxy,
                                 const CefString& host,
                                 int port,
                                 const X509CertificateList& certificates,
                                 CefRefPtr<CefSelectClientCertificateCallback> callback) override;
  // Loads the browser's first URL again, unless it is the site that has just crashed.
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser, TerminationStatus status) override;
  void OnDocumentAvailableInMainFrame(CefRefPtr<CefBrowser> browser) override;

  // CefResourceRequestHandler
  CefRefPtr<CefCookieAccessFilter> GetCookieAccessFilter(CefRefPtr<CefBrowser> browser,
                                                         CefRefPtr<CefFrame> frame,
                                                         CefRefPtr<CefRequest> request) override;
  // Prepares the request for the hub; the resource manager decides how it goes on.
  ReturnValue OnBeforeResourceLoad(CefRefPtr<CefBrowser> browser,
                                   CefRefPtr<CefFrame> frame,
                                   CefRefPtr<CefRequest> request,
                                   CefRefPtr<CefCallback> callback) override;
  CefRefPtr<CefResourceHandler> GetResourceHandler(CefRefPtr<CefBrowser> browser,
                                                   CefRefPtr<CefFrame> frame,
                                                   CefRefPtr<CefRequest> request) override;
  // The host may send the redirect elsewhere.
  void OnResourceRedirect(CefRefPtr<CefBrowser> browser,
                          CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request,
                          CefRefPtr<CefResponse> response,
                          CefString& new_url) override;
  // Returns true to restart the request with another URL, which the host gave.
  bool OnResourceResponse(CefRefPtr<CefBrowser> browser,
                          CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request,
                          CefRefPtr<CefResponse> response) override;
  CefRefPtr<CefResponseFilter> GetResourceResponseFilter(CefRefPtr<CefBrowser> browser,
                                                         CefRefPtr<CefFrame> frame,
                                                         CefRefPtr<CefRequest> request,
                                                         CefRefPtr<CefResponse> response) override;
  // Tells the host what a page posted to a federated search service.
  void OnResourceLoadComplete(CefRefPtr<CefBrowser> browser,
                              CefRefPtr<CefFrame> frame,
                              CefRefPtr<CefRequest> request,
                              CefRefPtr<CefResponse> response,
                              URLRequestStatus status,
                              int64_t received_content_length) override;
  // Lets the operating system open the addresses of one music player.
  void OnProtocolExecution(CefRefPtr<CefBrowser> browser,
                           CefRefPtr<CefFrame> frame,
                           CefRefPtr<CefRequest> request,
                           bool& allow_os_execution) override;

 private:
  // Written once.
  const bool creation_flag_;
  const std::string startup_url_;
  bool mouse_cursor_change_disabled_ = false;
  bool offline_ = false;
  bool download_favicon_images_ = false;
  // Exists exactly while there are browsers.
  CefRefPtr<CefMessageRouterBrowserSide> message_router_;
  const CefRefPtr<CefResourceManager> resource_manager_;
  std::atomic<Delegate*> delegate_;
  CefRefPtr<HostThreadDispatcher> dispatcher_;
  int32_t browser_count_ = 0;
  const std::string console_log_file_ = "console.log";
  bool first_console_message_ = true;
  // What the renderer last reported.
  bool focus_on_editable_field_ = false;
  bool initial_navigation_ = true;
  std::set<std::unique_ptr<CefMessageRouterBrowserSide::Handler>> message_handler_set_;

  IMPLEMENT_REFCOUNTING(kzCefClientHandler);
};

}  // namespace kzcef
