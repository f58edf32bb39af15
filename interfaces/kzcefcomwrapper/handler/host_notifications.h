// The one way back up: how the rooms below the automation layer reach the host's handlers.
//
// The automation layer publishes its dispatchers here when its registry comes into being; the
// client handler and the browser instance raise notifications through them and see no coclass.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <string>
#include <utility>

#include "include/cef_browser.h"

namespace kzcef {

// One dispatcher per notification. Each finds the host handlers registered for the browser whose
// host window is `window` and calls them synchronously on the calling thread, in ascending order of
// their pointers. Out-arguments are the caller's variables: every handler sees what the one before
// it wrote, and with no handler they keep their values (but see BeforePopupNotify). BSTR pointers
// are in/out as in automation: never null themselves, and a handler may free and replace the text.
// Nothing is reported: handlers that fail are passed over. Running out of memory for a text throws
// _com_error with E_OUTOFMEMORY.
class HostNotifications {
 public:
  virtual ~HostNotifications() = default;

  // Returns true once the host has announced that it is closing; from then on nothing may be
  // raised.
  virtual bool IsHostClosing() const = 0;
  // Atomically begins (true) or ends a notification, and returns whether one was under way before.
  // Beginnings and ends come in pairs; pairs of several threads may overlap.
  virtual bool ExchangeProcessing(bool processing) = 0;
  // Returns whether any handler serves any browser. If not, callbacks save themselves the
  // preparation of what comes with every request of a page.
  virtual bool IsAnyoneListening() const = 0;

  virtual void AddressChangeNotify(HWND window, const std::wstring& new_address) = 0;
  virtual void BeforeBrowseNotify(HWND window,
                                  const std::wstring& request_url,
                                  VARIANT_BOOL user_gesture,
                                  VARIANT_BOOL is_redirect,
                                  VARIANT_BOOL* cancel_navigation) = 0;
  virtual void BeforeContextMenuNotify(HWND window, VARIANT_BOOL* clear_model) = 0;
  virtual void BeforeDownloadNotify(HWND window,
                                    BSTR* download_path_name,
                                    VARIANT_BOOL* can_be_downloaded,
                                    VARIANT_BOOL* show_save_as_dialog) = 0;
  // `popup` ends up as the PopupUserBrowser flag of the last browser examined, unless a matching
  // handler wrote it after that.
  virtual void BeforePopupNotify(HWND window,
                                 const std::wstring& url,
                                 VARIANT_BOOL* popup,
                                 VARIANT_BOOL* proceed) = 0;
  virtual void BeforeResourceLoadNotify(HWND window, BSTR* url, BSTR* request_type_name) = 0;
  virtual void BrowserCreatedNotify(HWND window) = 0;
  virtual void DownloadCompletedNotify(HWND window, const std::wstring& download_path_name) = 0;
  virtual void DownloadUpdatedNotify(HWND window,
                                     const std::wstring& download_path_name,
                                     long download_status,
                                     long percent_complete) = 0;
  virtual void EscapeKeyNotify(HWND window) = 0;
  virtual void GetAuthCredentialsNotify(HWND window,
                                        BSTR* origin_url,
                                        VARIANT_BOOL* is_proxy,
                                        BSTR* host,
                                        long port,
                                        BSTR* realm,
                                        BSTR* scheme,
                                        VARIANT_BOOL* should_continue,
                                        BSTR* username,
                                        BSTR* password) = 0;
  virtual void KeyStrokeNotify(HWND window, long windows_key_code, VARIANT_BOOL* is_handled) = 0;
  virtual void LoadEndNotify(HWND window, long http_status) = 0;
  virtual void LoadStartNotify(HWND window, long transition_type) = 0;
  virtual void LoadingStateChangeNotify(HWND window,
                                        VARIANT_BOOL is_loading,
                                        VARIANT_BOOL can_go_back,
                                        VARIANT_BOOL can_go_forward) = 0;
  virtual void ResourceLoadCompleteNotify(HWND window,
                                          const std::wstring& request_url,
                                          const std::wstring& json) = 0;
  virtual void ResourceRedirectNotify(HWND window,
                                      const std::wstring& old_url,
                                      BSTR* new_url,
                                      long status_code) = 0;
  virtual void ResourceResponseNotify(HWND window,
                                      BSTR* url,
                                      VARIANT_BOOL* modify_request,
                                      long resource_type) = 0;
};

// Returns the published dispatchers, or null while no registry exists. Any thread.
std::shared_ptr<HostNotifications> CurrentHostNotifications();
// Publishes (or, with null, withdraws) the dispatchers. Any thread.
void PublishHostNotifications(std::shared_ptr<HostNotifications> notifications);

// Raises one notification for `browser`: nothing without a browser (CEF has none for a service
// worker's requests) or dispatchers, or once the host is closing; otherwise calls
// `raise(HostNotifications&, HWND)` with the browser's host window, with the processing flag set
// for exactly that time, also when `raise` throws. Returns whether `raise` was called.
template <typename Raise>
bool RaiseNotification(const CefRefPtr<CefBrowser>& browser, Raise&& raise) {
  const std::shared_ptr<HostNotifications> host = CurrentHostNotifications();
  if (!browser || !host || host->IsHostClosing()) {
    return false;
  }
  const CefRefPtr<CefBrowserHost> browser_host = browser->GetHost();
  if (!browser_host) {
    return false;
  }
  const HWND window = browser_host->GetWindowHandle();
  struct Processing {
    explicit Processing(HostNotifications& notifications) : notifications_(notifications) {
      notifications_.ExchangeProcessing(true);
    }
    ~Processing() { notifications_.ExchangeProcessing(false); }
    Processing(const Processing&) = delete;
    Processing& operator=(const Processing&) = delete;
    HostNotifications& notifications_;
  } processing(*host);
  std::forward<Raise>(raise)(*host, window);
  return true;
}

}  // namespace kzcef
