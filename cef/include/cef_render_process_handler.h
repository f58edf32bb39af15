// include/cef_render_process_handler.h of CEF 123, as far as it is
// used here: callbacks of a renderer process.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_frame.h"
#include "include/cef_load_handler.h"
#include "include/cef_process_message.h"
#include "include/cef_values.h"

// Callbacks of a renderer process.
class CefRenderProcessHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_navigation_type_t NavigationType;

  virtual void OnWebKitInitialized() {}
  virtual void OnBrowserCreated(CefRefPtr<CefBrowser> /*browser*/,
                                CefRefPtr<CefDictionaryValue> /*extra_info*/) {}
  virtual void OnBrowserDestroyed(CefRefPtr<CefBrowser> /*browser*/) {}
  virtual CefRefPtr<CefLoadHandler> GetLoadHandler() { return nullptr; }
  virtual bool OnProcessMessageReceived(CefRefPtr<CefBrowser> /*browser*/,
                                        CefRefPtr<CefFrame> /*frame*/,
                                        CefProcessId /*source_process*/,
                                        CefRefPtr<CefProcessMessage> /*message*/) {
    return false;
  }
};
