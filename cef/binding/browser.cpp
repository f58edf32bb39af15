// include/cef_browser.h over the C API.

#include "include/cef_browser.h"
#include "include/cef_client.h"

#include "binding.h"
#include "favicon_requests.h"
#include "forced_closes.h"
#include "keep_alives.h"
#include "settings.h"

namespace cefbinding {
namespace {

class BrowserObject final : public LibraryObject<CefBrowser> {
 public:
  explicit BrowserObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  CefRefPtr<CefBrowserHost> GetHost() override { return Call(&Struct::get_host); }
  bool CanGoBack() override { return Call(&Struct::can_go_back); }
  void GoBack() override { Call(&Struct::go_back); }
  bool CanGoForward() override { return Call(&Struct::can_go_forward); }
  void GoForward() override { Call(&Struct::go_forward); }
  bool IsLoading() override { return Call(&Struct::is_loading); }
  void Reload() override { Call(&Struct::reload); }
  void ReloadIgnoreCache() override { Call(&Struct::reload_ignore_cache); }
  void StopLoad() override { Call(&Struct::stop_load); }
  int GetIdentifier() override { return Call(&Struct::get_identifier); }
  bool IsSame(CefRefPtr<CefBrowser> that) override { return Call(&Struct::is_same, that); }
  bool IsPopup() override { return Call(&Struct::is_popup); }
  bool HasDocument() override { return Call(&Struct::has_document); }
  CefRefPtr<CefFrame> GetMainFrame() override { return Call(&Struct::get_main_frame); }
  CefRefPtr<CefFrame> GetFocusedFrame() override { return Call(&Struct::get_focused_frame); }
  CefRefPtr<CefFrame> GetFrameByIdentifier(const CefString& identifier) override {
    return Call(&Struct::get_frame_by_identifier, Needed(identifier));
  }
  CefRefPtr<CefFrame> GetFrameByName(const CefString& name) override {
    return Call(&Struct::get_frame_by_name, name);
  }
  size_t GetFrameCount() override { return Call(&Struct::get_frame_count); }
  void GetFrameIdentifiers(std::vector<CefString>& identifiers) override {
    Call(&Struct::get_frame_identifiers, &identifiers);
  }
  void GetFrameNames(std::vector<CefString>& names) override {
    Call(&Struct::get_frame_names, &names);
  }
};

class BrowserHostObject final : public LibraryObject<CefBrowserHost> {
 public:
  explicit BrowserHostObject(Struct* object) : LibraryObject(object) {}

  CefRefPtr<CefBrowser> GetBrowser() override { return Call(&Struct::get_browser); }
  void CloseBrowser(bool force_close) override {
    const CefRefPtr<CefBrowser> browser = GetBrowser();
    if (force_close && browser) {
      NoteForcedClose(browser->GetIdentifier());
    }
    Call(&Struct::close_browser, force_close);
  }
  bool TryCloseBrowser() override { return Call(&Struct::try_close_browser); }
  void SetFocus(bool focus) override { Call(&Struct::set_focus, focus); }
  CefWindowHandle GetWindowHandle() override { return Call(&Struct::get_window_handle); }
  CefWindowHandle GetOpenerWindowHandle() override {
    return Call(&Struct::get_opener_window_handle);
  }
  bool HasView() override { return Call(&Struct::has_view); }
  CefRefPtr<CefClient> GetClient() override { return Call(&Struct::get_client); }
  CefRefPtr<CefRequestContext> GetRequestContext() override {
    return Call(&Struct::get_request_context);
  }
  bool CanZoom(cef_zoom_command_t command) override { return Call(&Struct::can_zoom, command); }
  void Zoom(cef_zoom_command_t command) override { Call(&Struct::zoom, command); }
  double GetDefaultZoomLevel() override { return Call(&Struct::get_default_zoom_level); }
  double GetZoomLevel() override { return Call(&Struct::get_zoom_level); }
  void SetZoomLevel(double zoomLevel) override { Call(&Struct::set_zoom_level, zoomLevel); }
  void StartDownload(const CefString& url) override { Call(&Struct::start_download, Needed(url)); }
  void DownloadImage(const CefString& image_url,
                     bool is_favicon,
                     uint32_t max_image_size,
                     bool bypass_cache,
                     CefRefPtr<CefDownloadImageCallback> callback) override {
    const CefRefPtr<CefBrowser> browser = GetBrowser();
    if (is_favicon && callback && browser) {
      callback = ExpectFavicon(browser->GetIdentifier(), image_url, callback);
    }
    Call(&Struct::download_image, Needed(image_url), is_favicon, max_image_size, bypass_cache,
         callback);
  }
  void Print() override { Call(&Struct::print); }
  void Find(const CefString& searchText, bool forward, bool matchCase, bool findNext) override {
    Call(&Struct::find, Needed(searchText), forward, matchCase, findNext);
  }
  void StopFinding(bool clearSelection) override { Call(&Struct::stop_finding, clearSelection); }
  void ShowDevTools(const CefWindowInfo& windowInfo,
                    CefRefPtr<CefClient> client,
                    const CefBrowserSettings& settings,
                    const CefPoint& inspect_element_at) override {
    if (const CefRefPtr<CefBrowser> browser = GetBrowser()) {
      NoteDevTools(browser->GetIdentifier());
    }
    Call(&Struct::show_dev_tools, DevToolsWindow{windowInfo}, client, settings, inspect_element_at);
  }
  void CloseDevTools() override { Call(&Struct::close_dev_tools); }
  bool HasDevTools() override { return Call(&Struct::has_dev_tools); }
  bool SendDevToolsMessage(const void* message, size_t message_size) override {
    return Call(&Struct::send_dev_tools_message, message, message_size);
  }
  int ExecuteDevToolsMethod(int message_id,
                            const CefString& method,
                            CefRefPtr<CefDictionaryValue> params) override {
    return Call(&Struct::execute_dev_tools_method, message_id, Needed(method), params);
  }
  CefRefPtr<CefRegistration> AddDevToolsMessageObserver(
      CefRefPtr<CefDevToolsMessageObserver> observer) override {
    return Call(&Struct::add_dev_tools_message_observer, observer);
  }
  void WasResized() override { Call(&Struct::was_resized); }
  void WasHidden(bool hidden) override { Call(&Struct::was_hidden, hidden); }
  void SendKeyEvent(const CefKeyEvent& event) override { Call(&Struct::send_key_event, event); }
  void SendMouseClickEvent(const CefMouseEvent& event,
                           MouseButtonType type,
                           bool mouseUp,
                           int clickCount) override {
    Call(&Struct::send_mouse_click_event, event, type, mouseUp, clickCount);
  }
  void SendMouseMoveEvent(const CefMouseEvent& event, bool mouseLeave) override {
    Call(&Struct::send_mouse_move_event, event, mouseLeave);
  }
  void SendMouseWheelEvent(const CefMouseEvent& event, int deltaX, int deltaY) override {
    Call(&Struct::send_mouse_wheel_event, event, deltaX, deltaY);
  }
  void NotifyMoveOrResizeStarted() override { Call(&Struct::notify_move_or_resize_started); }
  void SetAudioMuted(bool mute) override { Call(&Struct::set_audio_muted, mute); }
  bool IsAudioMuted() override { return Call(&Struct::is_audio_muted); }
  bool IsFullscreen() override { return Call(&Struct::is_fullscreen); }
  void ExitFullscreen(bool will_cause_resize) override {
    Call(&Struct::exit_fullscreen, will_cause_resize);
  }
};

}  // namespace

template <>
CefRefPtr<CefBrowser> Counterpart<CefBrowser>::LibraryClass::Wrap(Struct* object) {
  return new BrowserObject(object);
}

template <>
void Counterpart<CefDownloadImageCallback>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDownloadImageCallback::OnDownloadImageFinished>(
      functions.on_download_image_finished);
}

template <>
CefRefPtr<CefBrowserHost> Counterpart<CefBrowserHost>::LibraryClass::Wrap(Struct* object) {
  return new BrowserHostObject(object);
}

}  // namespace cefbinding
