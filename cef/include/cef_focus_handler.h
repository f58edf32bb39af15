// include/cef_focus_handler.h of CEF 123, as far as it is used
// here: callbacks about the keyboard focus.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_frame.h"

// Focus changes, on the UI thread.
class CefFocusHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_focus_source_t FocusSource;

  virtual void OnTakeFocus(CefRefPtr<CefBrowser> /*browser*/, bool /*next*/) {}
  virtual bool OnSetFocus(CefRefPtr<CefBrowser> /*browser*/, FocusSource /*source*/) {
    return false;
  }
  virtual void OnGotFocus(CefRefPtr<CefBrowser> /*browser*/) {}
};
