// include/cef_keyboard_handler.h of CEF 123, as far as it is used here: callbacks about keys.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// Keys before and after the page sees them, on the UI thread.
class CefKeyboardHandler : public virtual CefBaseRefCounted {
 public:
  virtual bool OnPreKeyEvent(CefRefPtr<CefBrowser> /*browser*/,
                             const CefKeyEvent& /*event*/,
                             CefEventHandle /*os_event*/,
                             bool* /*is_keyboard_shortcut*/) {
    return false;
  }
  virtual bool OnKeyEvent(CefRefPtr<CefBrowser> /*browser*/,
                          const CefKeyEvent& /*event*/,
                          CefEventHandle /*os_event*/) {
    return false;
  }
};
