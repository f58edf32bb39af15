#include "devtools/edition_host.h"

#include <cmath>

#include "devtools/browser_core.h"
#include "devtools/download_pages.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/image_download.h"
#include "devtools/input_queue.h"
#include "devtools/navigation_entries.h"
#include "devtools/view/cef_event_translation.h"

namespace cefedition {
namespace {

// As in Chromium: each zoom level is a factor of 1.2.
constexpr double kZoomStep = 0.5;
constexpr double kMinZoomLevel = -7.6;
constexpr double kMaxZoomLevel = 8.9;

}  // namespace

EditionHost::EditionHost(std::shared_ptr<BrowserCore> core) : core_(std::move(core)) {}

EditionHost::~EditionHost() = default;

CefRefPtr<CefBrowser> EditionHost::GetBrowser() {
  return core_->browser();
}

void EditionHost::CloseBrowser(bool force_close) {
  core_->Close(force_close);
}

bool EditionHost::TryCloseBrowser() {
  if (!core_->state().window) {
    return true;
  }
  core_->Close(/*force=*/false);
  return false;
}

void EditionHost::SetFocus(bool focus) {
  if (focus) {
    core_->TakeFocus();
  }
}

CefWindowHandle EditionHost::GetWindowHandle() {
  return core_->state().window;
}

CefWindowHandle EditionHost::GetOpenerWindowHandle() {
  return core_->opener_window();
}

bool EditionHost::HasView() {
  return false;
}

CefRefPtr<CefClient> EditionHost::GetClient() {
  return core_->client();
}

CefRefPtr<CefRequestContext> EditionHost::GetRequestContext() {
  return core_->request_context();
}

bool EditionHost::CanZoom(cef_zoom_command_t command) {
  const double level = GetZoomLevel();
  switch (command) {
    case CEF_ZOOM_COMMAND_OUT:
      return level > kMinZoomLevel;
    case CEF_ZOOM_COMMAND_IN:
      return level < kMaxZoomLevel;
    default:
      return level != 0;
  }
}

void EditionHost::Zoom(cef_zoom_command_t command) {
  const double level = GetZoomLevel();
  switch (command) {
    case CEF_ZOOM_COMMAND_OUT:
      SetZoomLevel(level - kZoomStep);
      break;
    case CEF_ZOOM_COMMAND_IN:
      SetZoomLevel(level + kZoomStep);
      break;
    default:
      SetZoomLevel(0);
      break;
  }
}

double EditionHost::GetDefaultZoomLevel() {
  return 0;
}

double EditionHost::GetZoomLevel() {
  return core_->state().zoom_level;
}

void EditionHost::SetZoomLevel(double zoomLevel) {
  core_->SetZoomLevel(std::isfinite(zoomLevel) ? std::clamp(zoomLevel, kMinZoomLevel, kMaxZoomLevel)
                                               : 0);
}

void EditionHost::RunFileDialog(FileDialogMode,
                                const CefString&,
                                const CefString&,
                                const std::vector<CefString>&,
                                CefRefPtr<CefRunFileDialogCallback> callback) {
  // There is no dialog: it counts as cancelled.
  if (callback) {
    PostToUi([callback] { callback->OnFileDialogDismissed({}); });
  }
}

void EditionHost::StartDownload(const CefString& url) {
  core_->Post([text = url.ToString()](BrowserCore& core) {
    core.engine().download_pages().Start(core.shared_from_this(), text);
  });
}

void EditionHost::DownloadImage(const CefString& image_url,
                                bool,
                                uint32_t max_image_size,
                                bool bypass_cache,
                                CefRefPtr<CefDownloadImageCallback> callback) {
  if (callback) {
    StartImageDownload(core_, image_url.ToString(), max_image_size, bypass_cache, callback);
  }
}

void EditionHost::Print() {}

void EditionHost::PrintToPDF(const CefString& path,
                             const CefPdfPrintSettings&,
                             CefRefPtr<CefPdfPrintCallback> callback) {
  if (callback) {
    PostToUi([path, callback] { callback->OnPdfPrintFinished(path, false); });
  }
}

void EditionHost::Find(const CefString&, bool, bool, bool) {}

void EditionHost::StopFinding(bool) {}

void EditionHost::ShowDevTools(const CefWindowInfo& windowInfo,
                               CefRefPtr<CefClient> client,
                               const CefBrowserSettings& settings,
                               const CefPoint& inspect_element_at) {
  BrowserSpec spec;
  spec.window_info = windowInfo;
  spec.client = client;
  spec.settings = settings;
  spec.request_context = core_->request_context();
  if (windowInfo.style == 0 && !windowInfo.parent_window) {
    // Nobody has said what the window is to be like, and one without a style cannot be seen.
    spec.window_info.SetAsPopup(nullptr, "DevTools");
  }
  // As in CEF, the origin stands for no point at all.
  std::optional<CefPoint> point;
  if (!inspect_element_at.IsEmpty()) {
    point = inspect_element_at;
  }
  core_->ShowDevTools(spec, point);
}

void EditionHost::CloseDevTools() {
  core_->CloseDevTools();
}

bool EditionHost::HasDevTools() {
  return core_->state().has_devtools;
}

bool EditionHost::SendDevToolsMessage(const void* message, size_t message_size) {
  if (!message || message_size == 0 || !core_->state().valid) {
    return false;
  }
  return core_->devtools().SendMessage(
      std::string(static_cast<const char*>(message), message_size));
}

int EditionHost::ExecuteDevToolsMethod(int message_id,
                                       const CefString& method,
                                       CefRefPtr<CefDictionaryValue> params) {
  if (!OnUiThread() || !core_->state().valid) {
    return 0;
  }
  return core_->devtools().Execute(message_id, method.ToString(), params);
}

CefRefPtr<CefRegistration> EditionHost::AddDevToolsMessageObserver(
    CefRefPtr<CefDevToolsMessageObserver> observer) {
  return core_->state().valid ? core_->devtools().AddObserver(observer) : nullptr;
}

void EditionHost::GetNavigationEntries(CefRefPtr<CefNavigationEntryVisitor> visitor,
                                       bool current_only) {
  if (visitor) {
    VisitNavigationEntries(core_, visitor, current_only);
  }
}

void EditionHost::ReplaceMisspelling(const CefString&) {}

void EditionHost::AddWordToDictionary(const CefString&) {}

bool EditionHost::IsWindowRenderingDisabled() {
  return false;
}

void EditionHost::WasResized() {}

void EditionHost::WasHidden(bool hidden) {
  core_->Post([hidden](BrowserCore& core) { core.view().SetHidden(hidden); });
}

void EditionHost::NotifyScreenInfoChanged() {}

void EditionHost::Invalidate(PaintElementType) {
  core_->Post([](BrowserCore& core) { core.view().Repaint(); });
}

void EditionHost::SendExternalBeginFrame() {}

void EditionHost::SendInput(const InputCommand& command) {
  core_->Post([command](BrowserCore& core) { core.input().Add(command); });
}

void EditionHost::SendKeyEvent(const CefKeyEvent& event) {
  std::lock_guard hold(text_lock_);
  if (std::optional<InputCommand> command = TranslateKeyEvent(event, text_)) {
    core_->Post(
        [key = KeyPress{event, {}, *command}](BrowserCore& core) { core.input().AddKey(key); });
  }
}

void EditionHost::SendMouseClickEvent(const CefMouseEvent& event,
                                      MouseButtonType type,
                                      bool mouseUp,
                                      int clickCount) {
  SendInput(TranslateMouseClickEvent(event, type, mouseUp, clickCount));
}

void EditionHost::SendMouseMoveEvent(const CefMouseEvent& event, bool mouseLeave) {
  SendInput(TranslateMouseMoveEvent(event, mouseLeave));
}

void EditionHost::SendMouseWheelEvent(const CefMouseEvent& event, int deltaX, int deltaY) {
  SendInput(TranslateMouseWheelEvent(event, deltaX, deltaY));
}

void EditionHost::SendTouchEvent(const CefTouchEvent&) {}

void EditionHost::SendCaptureLostEvent() {}

void EditionHost::NotifyMoveOrResizeStarted() {}

int EditionHost::GetWindowlessFrameRate() {
  return 0;
}

void EditionHost::SetWindowlessFrameRate(int) {}

void EditionHost::ImeSetComposition(const CefString&,
                                    const std::vector<CefCompositionUnderline>&,
                                    const CefRange&,
                                    const CefRange&) {}

void EditionHost::ImeCommitText(const CefString& text, const CefRange&, int) {
  SendInput(MakeInsertTextCommand(text.ToString()));
}

void EditionHost::ImeFinishComposingText(bool) {}

void EditionHost::ImeCancelComposition() {}

void EditionHost::DragTargetDragEnter(CefRefPtr<CefDragData>,
                                      const CefMouseEvent&,
                                      DragOperationsMask) {}

void EditionHost::DragTargetDragOver(const CefMouseEvent&, DragOperationsMask) {}

void EditionHost::DragTargetDragLeave() {}

void EditionHost::DragTargetDrop(const CefMouseEvent&) {}

void EditionHost::DragSourceEndedAt(int, int, DragOperationsMask) {}

void EditionHost::DragSourceSystemDragEnded() {}

CefRefPtr<CefNavigationEntry> EditionHost::GetVisibleNavigationEntry() {
  return OnUiThread() ? VisibleNavigationEntry(*core_) : nullptr;
}

void EditionHost::SetAccessibilityState(cef_state_t) {}

void EditionHost::SetAutoResizeEnabled(bool, const CefSize&, const CefSize&) {}

bool EditionHost::IsBackgroundHost() {
  return false;
}

void EditionHost::SetAudioMuted(bool) {}

bool EditionHost::IsAudioMuted() {
  return false;
}

bool EditionHost::IsFullscreen() {
  return core_->state().fullscreen;
}

void EditionHost::ExitFullscreen(bool) {
  core_->Evaluate(core_->frames().main(), "document.exitFullscreen()", {}, 1);
}

bool EditionHost::CanExecuteChromeCommand(int) {
  return false;
}

void EditionHost::ExecuteChromeCommand(int, cef_window_open_disposition_t) {}

}  // namespace cefedition
