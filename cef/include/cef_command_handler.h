#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// Commands of the browser's own user interface.
class CefCommandHandler : public virtual CefBaseRefCounted {
 public:
  virtual bool OnChromeCommand(CefRefPtr<CefBrowser> browser,
                               int command_id,
                               cef_window_open_disposition_t disposition) {
    return false;
  }
  virtual bool IsChromeAppMenuItemVisible(CefRefPtr<CefBrowser> browser, int command_id) {
    return true;
  }
  virtual bool IsChromeAppMenuItemEnabled(CefRefPtr<CefBrowser> browser, int command_id) {
    return true;
  }
  virtual bool IsChromePageActionIconVisible(cef_chrome_page_action_icon_type_t icon_type) {
    return true;
  }
  virtual bool IsChromeToolbarButtonVisible(cef_chrome_toolbar_button_type_t button_type) {
    return true;
  }
};
