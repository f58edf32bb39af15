// Browsers, their hosts and frames that only record what is asked of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "include/cef_browser.h"
#include "include/cef_client.h"
#include "include/cef_frame.h"

// A browser, its host and its frames for tests: what is asked of them is written down in public
// members, and what they return is set there. Nothing happens by itself; the test raises the
// client's callbacks, handing these objects over.

namespace recording_cef {

class FakeBrowser;

// One call of CefFrame::ExecuteJavaScript.
struct Script {
  CefString code;
  CefString url;
  int line = 0;
};

// One call of CefFrame::SendProcessMessage.
struct SentMessage {
  CefProcessId target = PID_RENDERER;
  CefRefPtr<CefProcessMessage> message;
};

class FakeFrame final : public CefFrame {
 public:
  // What it was asked to do.
  std::vector<CefString> loaded_urls;
  std::vector<CefRefPtr<CefRequest>> loaded_requests;
  std::vector<Script> scripts;
  std::vector<SentMessage> messages;
  // Editing commands and ViewSource by name, in order.
  std::vector<std::string> commands;

  // What it returns.
  bool is_valid = true;
  bool is_main = true;
  bool is_focused = true;
  CefString name;
  CefString identifier = "frame-1";
  CefString url;
  CefString source;
  CefString text;
  CefRefPtr<CefFrame> parent;
  // Set by FakeBrowser; not counted, as the browser keeps the frame.
  CefBrowser* browser = nullptr;

  bool IsValid() override { return is_valid; }
  void Undo() override { commands.push_back("Undo"); }
  void Redo() override { commands.push_back("Redo"); }
  void Cut() override { commands.push_back("Cut"); }
  void Copy() override { commands.push_back("Copy"); }
  void Paste() override { commands.push_back("Paste"); }
  void Delete() override { commands.push_back("Delete"); }
  void SelectAll() override { commands.push_back("SelectAll"); }
  void ViewSource() override { commands.push_back("ViewSource"); }
  void GetSource(CefRefPtr<CefStringVisitor> visitor) override { visitor->Visit(source); }
  void GetText(CefRefPtr<CefStringVisitor> visitor) override { visitor->Visit(text); }
  void LoadRequest(CefRefPtr<CefRequest> request) override { loaded_requests.push_back(request); }
  void LoadURL(const CefString& target) override { loaded_urls.push_back(target); }
  void ExecuteJavaScript(const CefString& code,
                         const CefString& script_url,
                         int start_line) override {
    scripts.push_back({code, script_url, start_line});
  }
  bool IsMain() override { return is_main; }
  bool IsFocused() override { return is_focused; }
  CefString GetName() override { return name; }
  CefString GetIdentifier() override { return identifier; }
  CefRefPtr<CefFrame> GetParent() override { return parent; }
  CefString GetURL() override { return url; }
  CefRefPtr<CefBrowser> GetBrowser() override { return browser; }
  void SendProcessMessage(CefProcessId target_process,
                          CefRefPtr<CefProcessMessage> message) override {
    messages.push_back({target_process, message});
  }

  IMPLEMENT_REFCOUNTING(FakeFrame);
};

// One call of CefBrowserHost::DownloadImage.
struct ImageDownload {
  CefString url;
  bool is_favicon = false;
  uint32_t max_size = 0;
  bool bypass_cache = false;
  CefRefPtr<CefDownloadImageCallback> callback;
};

// One call of CefBrowserHost::ExecuteDevToolsMethod.
struct DevToolsCall {
  int message_id = 0;
  CefString method;
  CefRefPtr<CefDictionaryValue> params;
};

// One call of CefBrowserHost::ShowDevTools.
struct DevToolsWindow {
  CefWindowInfo window_info;
  CefRefPtr<CefClient> client;
  CefBrowserSettings settings;
  CefPoint inspected;
};

class FakeBrowserHost final : public CefBrowserHost {
 public:
  // What it was asked to do.
  std::vector<bool> close_calls;
  int try_close_count = 0;
  std::vector<bool> focus_calls;
  std::vector<ImageDownload> image_downloads;
  std::vector<CefString> started_downloads;
  std::vector<DevToolsCall> devtools_calls;
  std::vector<std::string> devtools_messages;
  std::vector<CefRefPtr<CefDevToolsMessageObserver>> devtools_observers;
  std::vector<CefString> searches;
  int print_count = 0;
  int was_resized_count = 0;
  int move_or_resize_started_count = 0;
  std::vector<DevToolsWindow> devtools_windows;
  size_t close_devtools_count = 0;
  std::vector<CefKeyEvent> key_events;

  // What it returns.
  HWND window = nullptr;
  HWND opener_window = nullptr;
  bool try_close_result = true;
  double zoom_level = 0;
  bool is_audio_muted = false;
  int devtools_result = 1;
  CefRefPtr<CefClient> client;
  CefRefPtr<CefRequestContext> request_context;
  // Set by FakeBrowser; not counted, as the browser keeps the host.
  CefBrowser* browser = nullptr;

  CefRefPtr<CefBrowser> GetBrowser() override { return browser; }
  void CloseBrowser(bool force_close) override { close_calls.push_back(force_close); }
  bool TryCloseBrowser() override {
    ++try_close_count;
    return try_close_result;
  }
  void SetFocus(bool focus) override { focus_calls.push_back(focus); }
  CefWindowHandle GetWindowHandle() override { return window; }
  CefWindowHandle GetOpenerWindowHandle() override { return opener_window; }
  bool HasView() override { return false; }
  CefRefPtr<CefClient> GetClient() override { return client; }
  CefRefPtr<CefRequestContext> GetRequestContext() override { return request_context; }
  bool CanZoom(cef_zoom_command_t) override { return true; }
  void Zoom(cef_zoom_command_t command) override {
    zoom_level = command == CEF_ZOOM_COMMAND_RESET
                     ? 0
                     : zoom_level + (command == CEF_ZOOM_COMMAND_IN ? 0.5 : -0.5);
  }
  double GetDefaultZoomLevel() override { return 0; }
  double GetZoomLevel() override { return zoom_level; }
  void SetZoomLevel(double zoomLevel) override { zoom_level = zoomLevel; }
  void StartDownload(const CefString& url) override { started_downloads.push_back(url); }
  void DownloadImage(const CefString& image_url,
                     bool is_favicon,
                     uint32_t max_image_size,
                     bool bypass_cache,
                     CefRefPtr<CefDownloadImageCallback> callback) override {
    image_downloads.push_back({image_url, is_favicon, max_image_size, bypass_cache, callback});
  }
  void Print() override { ++print_count; }
  void Find(const CefString& searchText, bool, bool, bool) override {
    searches.push_back(searchText);
  }
  void StopFinding(bool) override {}
  void ShowDevTools(const CefWindowInfo& window_info,
                    CefRefPtr<CefClient> with,
                    const CefBrowserSettings& settings,
                    const CefPoint& inspected) override {
    DevToolsWindow& shown = devtools_windows.emplace_back();
    shown.window_info = window_info;
    shown.client = with;
    shown.settings = settings;
    shown.inspected = inspected;
  }
  void CloseDevTools() override { ++close_devtools_count; }
  bool HasDevTools() override { return devtools_windows.size() > close_devtools_count; }
  bool SendDevToolsMessage(const void* message, size_t message_size) override {
    devtools_messages.emplace_back(static_cast<const char*>(message), message_size);
    return true;
  }
  int ExecuteDevToolsMethod(int message_id,
                            const CefString& method,
                            CefRefPtr<CefDictionaryValue> params) override {
    devtools_calls.push_back({message_id, method, params});
    return devtools_result;
  }
  CefRefPtr<CefRegistration> AddDevToolsMessageObserver(
      CefRefPtr<CefDevToolsMessageObserver> observer) override {
    devtools_observers.push_back(observer);
    return nullptr;
  }
  void WasResized() override { ++was_resized_count; }
  void WasHidden(bool) override {}
  void SendKeyEvent(const CefKeyEvent& event) override { key_events.push_back(event); }
  void SendMouseClickEvent(const CefMouseEvent&, MouseButtonType, bool, int) override {}
  void SendMouseMoveEvent(const CefMouseEvent&, bool) override {}
  void SendMouseWheelEvent(const CefMouseEvent&, int, int) override {}
  void NotifyMoveOrResizeStarted() override { ++move_or_resize_started_count; }
  void SetAudioMuted(bool mute) override { is_audio_muted = mute; }
  bool IsAudioMuted() override { return is_audio_muted; }
  bool IsFullscreen() override { return false; }
  void ExitFullscreen(bool) override {}

  IMPLEMENT_REFCOUNTING(FakeBrowserHost);
};

// Owns its host and its frames, the main frame first.
class FakeBrowser final : public CefBrowser {
 public:
  explicit FakeBrowser(int browser_identifier = 1, HWND window = nullptr)
      : identifier(browser_identifier) {
    host->browser = this;
    host->window = window;
    main_frame->browser = this;
  }
  ~FakeBrowser() override {
    host->browser = nullptr;
    for (const CefRefPtr<FakeFrame>& frame : frames) {
      frame->browser = nullptr;
    }
  }

  CefRefPtr<FakeBrowserHost> host = new FakeBrowserHost;
  CefRefPtr<FakeFrame> main_frame = new FakeFrame;
  std::vector<CefRefPtr<FakeFrame>> frames = {main_frame};

  // Adds a frame below the main frame.
  CefRefPtr<FakeFrame> AddFrame(const CefString& frame_identifier, const CefString& name) {
    CefRefPtr<FakeFrame> frame = new FakeFrame;
    frame->is_main = false;
    frame->is_focused = false;
    frame->identifier = frame_identifier;
    frame->name = name;
    frame->parent = main_frame;
    frame->browser = this;
    frames.push_back(frame);
    return frame;
  }

  // What it was asked to do.
  int reload_count = 0;
  int reload_ignore_cache_count = 0;
  int stop_count = 0;
  int back_count = 0;
  int forward_count = 0;
  int main_frame_reads = 0;

  // What it returns.
  int identifier;
  bool is_valid = true;
  bool can_go_back = false;
  bool can_go_forward = false;
  bool is_loading = false;
  bool is_popup = false;
  // When false, null is returned instead, as by a browser that is going away.
  bool has_host = true;
  bool has_main_frame = true;

  bool IsValid() override { return is_valid; }
  CefRefPtr<CefBrowserHost> GetHost() override {
    return has_host ? CefRefPtr<CefBrowserHost>(host) : nullptr;
  }
  bool CanGoBack() override { return can_go_back; }
  void GoBack() override { ++back_count; }
  bool CanGoForward() override { return can_go_forward; }
  void GoForward() override { ++forward_count; }
  bool IsLoading() override { return is_loading; }
  void Reload() override { ++reload_count; }
  void ReloadIgnoreCache() override { ++reload_ignore_cache_count; }
  void StopLoad() override { ++stop_count; }
  int GetIdentifier() override { return identifier; }
  bool IsSame(CefRefPtr<CefBrowser> that) override {
    return that && that->GetIdentifier() == identifier;
  }
  bool IsPopup() override { return is_popup; }
  bool HasDocument() override { return has_main_frame; }
  CefRefPtr<CefFrame> GetMainFrame() override {
    ++main_frame_reads;
    return has_main_frame ? CefRefPtr<CefFrame>(main_frame) : nullptr;
  }
  CefRefPtr<CefFrame> GetFocusedFrame() override {
    return Find([](FakeFrame& frame) { return frame.is_focused; });
  }
  CefRefPtr<CefFrame> GetFrameByIdentifier(const CefString& wanted) override {
    return Find([&](FakeFrame& frame) { return frame.identifier == wanted; });
  }
  CefRefPtr<CefFrame> GetFrameByName(const CefString& name) override {
    return Find([&](FakeFrame& frame) { return frame.name == name; });
  }
  size_t GetFrameCount() override { return frames.size(); }
  void GetFrameIdentifiers(std::vector<CefString>& identifiers) override {
    for (const CefRefPtr<FakeFrame>& frame : frames) {
      identifiers.push_back(frame->identifier);
    }
  }
  void GetFrameNames(std::vector<CefString>& names) override {
    for (const CefRefPtr<FakeFrame>& frame : frames) {
      names.push_back(frame->name);
    }
  }

 private:
  template <typename Predicate>
  CefRefPtr<CefFrame> Find(Predicate predicate) {
    for (const CefRefPtr<FakeFrame>& frame : frames) {
      if (predicate(*frame)) {
        return frame;
      }
    }
    return nullptr;
  }

  IMPLEMENT_REFCOUNTING(FakeBrowser);
};

}  // namespace recording_cef
