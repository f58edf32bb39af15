// include/cef_browser.h of CEF 123, as far as it is used here: a browser and its host.
#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_devtools_message_observer.h"
#include "include/cef_frame.h"
#include "include/cef_image.h"
#include "include/cef_registration.h"
#include "include/cef_request_context.h"

class CefBrowserHost;
class CefClient;

// One browser. Methods may be called on any thread of the browser process unless said otherwise.
class CefBrowser : public virtual CefBaseRefCounted {
 public:
  virtual bool IsValid() = 0;
  virtual CefRefPtr<CefBrowserHost> GetHost() = 0;
  virtual bool CanGoBack() = 0;
  virtual void GoBack() = 0;
  virtual bool CanGoForward() = 0;
  virtual void GoForward() = 0;
  virtual bool IsLoading() = 0;
  virtual void Reload() = 0;
  virtual void ReloadIgnoreCache() = 0;
  virtual void StopLoad() = 0;
  virtual int GetIdentifier() = 0;
  virtual bool IsSame(CefRefPtr<CefBrowser> that) = 0;
  virtual bool IsPopup() = 0;
  virtual bool HasDocument() = 0;
  virtual CefRefPtr<CefFrame> GetMainFrame() = 0;
  virtual CefRefPtr<CefFrame> GetFocusedFrame() = 0;
  virtual CefRefPtr<CefFrame> GetFrameByIdentifier(const CefString& identifier) = 0;
  virtual CefRefPtr<CefFrame> GetFrameByName(const CefString& name) = 0;
  virtual size_t GetFrameCount() = 0;
  virtual void GetFrameIdentifiers(std::vector<CefString>& identifiers) = 0;
  virtual void GetFrameNames(std::vector<CefString>& names) = 0;
};

// Receives a downloaded image, or null with the HTTP status, on the UI thread.
class CefDownloadImageCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnDownloadImageFinished(const CefString& image_url,
                                       int http_status_code,
                                       CefRefPtr<CefImage> image) = 0;
};

// The window side of one browser: creation, closing, focus, zoom, input, DevTools.
class CefBrowserHost : public virtual CefBaseRefCounted {
 public:
  typedef cef_mouse_button_type_t MouseButtonType;

  static bool CreateBrowser(const CefWindowInfo& windowInfo,
                            CefRefPtr<CefClient> client,
                            const CefString& url,
                            const CefBrowserSettings& settings,
                            CefRefPtr<CefDictionaryValue> extra_info,
                            CefRefPtr<CefRequestContext> request_context);
  static CefRefPtr<CefBrowser> CreateBrowserSync(const CefWindowInfo& windowInfo,
                                                 CefRefPtr<CefClient> client,
                                                 const CefString& url,
                                                 const CefBrowserSettings& settings,
                                                 CefRefPtr<CefDictionaryValue> extra_info,
                                                 CefRefPtr<CefRequestContext> request_context);
  virtual CefRefPtr<CefBrowser> GetBrowser() = 0;
  virtual void CloseBrowser(bool force_close) = 0;
  virtual bool TryCloseBrowser() = 0;
  virtual void SetFocus(bool focus) = 0;
  virtual CefWindowHandle GetWindowHandle() = 0;
  virtual CefWindowHandle GetOpenerWindowHandle() = 0;
  virtual bool HasView() = 0;
  virtual CefRefPtr<CefClient> GetClient() = 0;
  virtual CefRefPtr<CefRequestContext> GetRequestContext() = 0;
  virtual bool CanZoom(cef_zoom_command_t command) = 0;
  virtual void Zoom(cef_zoom_command_t command) = 0;
  virtual double GetDefaultZoomLevel() = 0;
  virtual double GetZoomLevel() = 0;
  virtual void SetZoomLevel(double zoomLevel) = 0;
  virtual void StartDownload(const CefString& url) = 0;
  virtual void DownloadImage(const CefString& image_url,
                             bool is_favicon,
                             uint32_t max_image_size,
                             bool bypass_cache,
                             CefRefPtr<CefDownloadImageCallback> callback) = 0;
  virtual void Print() = 0;
  virtual void Find(const CefString& searchText, bool forward, bool matchCase, bool findNext) = 0;
  virtual void StopFinding(bool clearSelection) = 0;
  virtual void ShowDevTools(const CefWindowInfo& windowInfo,
                            CefRefPtr<CefClient> client,
                            const CefBrowserSettings& settings,
                            const CefPoint& inspect_element_at) = 0;
  virtual void CloseDevTools() = 0;
  virtual bool HasDevTools() = 0;
  virtual bool SendDevToolsMessage(const void* message, size_t message_size) = 0;
  virtual int ExecuteDevToolsMethod(int message_id,
                                    const CefString& method,
                                    CefRefPtr<CefDictionaryValue> params) = 0;
  virtual CefRefPtr<CefRegistration> AddDevToolsMessageObserver(
      CefRefPtr<CefDevToolsMessageObserver> observer) = 0;
  virtual void WasResized() = 0;
  virtual void WasHidden(bool hidden) = 0;
  virtual void SendKeyEvent(const CefKeyEvent& event) = 0;
  virtual void SendMouseClickEvent(const CefMouseEvent& event,
                                   MouseButtonType type,
                                   bool mouseUp,
                                   int clickCount) = 0;
  virtual void SendMouseMoveEvent(const CefMouseEvent& event, bool mouseLeave) = 0;
  virtual void SendMouseWheelEvent(const CefMouseEvent& event, int deltaX, int deltaY) = 0;
  virtual void NotifyMoveOrResizeStarted() = 0;
  virtual void SetAudioMuted(bool mute) = 0;
  virtual bool IsAudioMuted() = 0;
  virtual bool IsFullscreen() = 0;
  virtual void ExitFullscreen(bool will_cause_resize) = 0;
};
