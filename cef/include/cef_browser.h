#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_devtools_message_observer.h"
#include "include/cef_drag_data.h"
#include "include/cef_frame.h"
#include "include/cef_image.h"
#include "include/cef_navigation_entry.h"
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

// Receives the choice made in a file dialog, on the UI thread.
class CefRunFileDialogCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnFileDialogDismissed(const std::vector<CefString>& file_paths) = 0;
};

// Visits history entries on the UI thread; Visit answers false to stop.
class CefNavigationEntryVisitor : public virtual CefBaseRefCounted {
 public:
  virtual bool Visit(CefRefPtr<CefNavigationEntry> entry, bool current, int index, int total) = 0;
};

// Hears about the end of a PDF print, on the UI thread.
class CefPdfPrintCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnPdfPrintFinished(const CefString& path, bool ok) = 0;
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
  typedef cef_drag_operations_mask_t DragOperationsMask;
  typedef cef_file_dialog_mode_t FileDialogMode;
  typedef cef_mouse_button_type_t MouseButtonType;
  typedef cef_paint_element_type_t PaintElementType;

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
  virtual void RunFileDialog(FileDialogMode mode,
                             const CefString& title,
                             const CefString& default_file_path,
                             const std::vector<CefString>& accept_filters,
                             CefRefPtr<CefRunFileDialogCallback> callback) = 0;
  virtual void StartDownload(const CefString& url) = 0;
  virtual void DownloadImage(const CefString& image_url,
                             bool is_favicon,
                             uint32_t max_image_size,
                             bool bypass_cache,
                             CefRefPtr<CefDownloadImageCallback> callback) = 0;
  virtual void Print() = 0;
  virtual void PrintToPDF(const CefString& path,
                          const CefPdfPrintSettings& settings,
                          CefRefPtr<CefPdfPrintCallback> callback) = 0;
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
  virtual void GetNavigationEntries(CefRefPtr<CefNavigationEntryVisitor> visitor,
                                    bool current_only) = 0;
  virtual void ReplaceMisspelling(const CefString& word) = 0;
  virtual void AddWordToDictionary(const CefString& word) = 0;
  virtual bool IsWindowRenderingDisabled() = 0;
  virtual void WasResized() = 0;
  virtual void WasHidden(bool hidden) = 0;
  virtual void NotifyScreenInfoChanged() = 0;
  virtual void Invalidate(PaintElementType type) = 0;
  virtual void SendExternalBeginFrame() = 0;
  virtual void SendKeyEvent(const CefKeyEvent& event) = 0;
  virtual void SendMouseClickEvent(const CefMouseEvent& event,
                                   MouseButtonType type,
                                   bool mouseUp,
                                   int clickCount) = 0;
  virtual void SendMouseMoveEvent(const CefMouseEvent& event, bool mouseLeave) = 0;
  virtual void SendMouseWheelEvent(const CefMouseEvent& event, int deltaX, int deltaY) = 0;
  virtual void SendTouchEvent(const CefTouchEvent& event) = 0;
  virtual void SendCaptureLostEvent() = 0;
  virtual void NotifyMoveOrResizeStarted() = 0;
  virtual int GetWindowlessFrameRate() = 0;
  virtual void SetWindowlessFrameRate(int frame_rate) = 0;
  virtual void ImeSetComposition(const CefString& text,
                                 const std::vector<CefCompositionUnderline>& underlines,
                                 const CefRange& replacement_range,
                                 const CefRange& selection_range) = 0;
  virtual void ImeCommitText(const CefString& text,
                             const CefRange& replacement_range,
                             int relative_cursor_pos) = 0;
  virtual void ImeFinishComposingText(bool keep_selection) = 0;
  virtual void ImeCancelComposition() = 0;
  virtual void DragTargetDragEnter(CefRefPtr<CefDragData> drag_data,
                                   const CefMouseEvent& event,
                                   DragOperationsMask allowed_ops) = 0;
  virtual void DragTargetDragOver(const CefMouseEvent& event, DragOperationsMask allowed_ops) = 0;
  virtual void DragTargetDragLeave() = 0;
  virtual void DragTargetDrop(const CefMouseEvent& event) = 0;
  virtual void DragSourceEndedAt(int x, int y, DragOperationsMask op) = 0;
  virtual void DragSourceSystemDragEnded() = 0;
  virtual CefRefPtr<CefNavigationEntry> GetVisibleNavigationEntry() = 0;
  virtual void SetAccessibilityState(cef_state_t accessibility_state) = 0;
  virtual void SetAutoResizeEnabled(bool enabled,
                                    const CefSize& min_size,
                                    const CefSize& max_size) = 0;
  virtual bool IsBackgroundHost() = 0;
  virtual void SetAudioMuted(bool mute) = 0;
  virtual bool IsAudioMuted() = 0;
  virtual bool IsFullscreen() = 0;
  virtual void ExitFullscreen(bool will_cause_resize) = 0;
  virtual bool CanExecuteChromeCommand(int command_id) = 0;
  virtual void ExecuteChromeCommand(int command_id, cef_window_open_disposition_t disposition) = 0;
};
