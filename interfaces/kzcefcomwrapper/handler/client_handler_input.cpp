// Keys, focus and drags.
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {

bool kzCefClientHandler::OnPreKeyEvent(CefRefPtr<CefBrowser> browser,
                                       const CefKeyEvent& event,
                                       CefEventHandle /*os_event*/,
                                       bool* /*is_keyboard_shortcut*/) {
  CEF_REQUIRE_UI_THREAD();
  // What is typed into a field is the page's alone.
  if (event.focus_on_editable_field || event.type != KEYEVENT_RAWKEYDOWN) {
    return false;
  }
  if (event.windows_key_code == VK_ESCAPE) {
    RaiseContained(browser,
                   [](HostNotifications& host, HWND window) { host.EscapeKeyNotify(window); });
  }
  VARIANT_BOOL is_handled = VARIANT_FALSE;
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    host.KeyStrokeNotify(window, event.windows_key_code, &is_handled);
  });
  // Deliberately strict: a host's 1 does not stop the key.
  return is_handled == VARIANT_TRUE;
}

void kzCefClientHandler::OnTakeFocus(CefRefPtr<CefBrowser> /*browser*/, bool next) {
  CEF_REQUIRE_UI_THREAD();
  if (Delegate* const owner = delegate()) {
    owner->OnTakeFocus(next);
  }
}

bool kzCefClientHandler::OnSetFocus(CefRefPtr<CefBrowser> /*browser*/, FocusSource /*source*/) {
  CEF_REQUIRE_UI_THREAD();
  return false;
}

bool kzCefClientHandler::OnDragEnter(CefRefPtr<CefBrowser> /*browser*/,
                                     CefRefPtr<CefDragData> /*drag_data*/,
                                     DragOperationsMask /*mask*/) {
  CEF_REQUIRE_UI_THREAD();
  return false;
}

void kzCefClientHandler::OnDraggableRegionsChanged(CefRefPtr<CefBrowser> /*browser*/,
                                                   CefRefPtr<CefFrame> /*frame*/,
                                                   const std::vector<CefDraggableRegion>& regions) {
  CEF_REQUIRE_UI_THREAD();
  if (Delegate* const owner = delegate()) {
    owner->OnSetDraggableRegions(regions);
  }
}

}  // namespace kzcef
