// include/cef_client.h of CEF 123, as far as it is used here: the
// object that gives a browser its handlers.
#pragma once

#include "include/cef_base.h"
#include "include/cef_context_menu_handler.h"
#include "include/cef_display_handler.h"
#include "include/cef_download_handler.h"
#include "include/cef_drag_handler.h"
#include "include/cef_focus_handler.h"
#include "include/cef_keyboard_handler.h"
#include "include/cef_life_span_handler.h"
#include "include/cef_load_handler.h"
#include "include/cef_process_message.h"
#include "include/cef_request_handler.h"

// The handlers of one or more browsers. Each getter is called at each use and may return null.
class CefClient : public virtual CefBaseRefCounted {
 public:
  virtual CefRefPtr<CefContextMenuHandler> GetContextMenuHandler() { return nullptr; }
  virtual CefRefPtr<CefDisplayHandler> GetDisplayHandler() { return nullptr; }
  virtual CefRefPtr<CefDownloadHandler> GetDownloadHandler() { return nullptr; }
  virtual CefRefPtr<CefDragHandler> GetDragHandler() { return nullptr; }
  virtual CefRefPtr<CefFocusHandler> GetFocusHandler() { return nullptr; }
  virtual CefRefPtr<CefKeyboardHandler> GetKeyboardHandler() { return nullptr; }
  virtual CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() { return nullptr; }
  virtual CefRefPtr<CefLoadHandler> GetLoadHandler() { return nullptr; }
  virtual CefRefPtr<CefRequestHandler> GetRequestHandler() { return nullptr; }
  virtual bool OnProcessMessageReceived(CefRefPtr<CefBrowser> /*browser*/,
                                        CefRefPtr<CefFrame> /*frame*/,
                                        CefProcessId /*source_process*/,
                                        CefRefPtr<CefProcessMessage> /*message*/) {
    return false;
  }
};
