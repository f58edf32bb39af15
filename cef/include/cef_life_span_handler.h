// include/cef_life_span_handler.h of CEF 123, as far as it is used here:
// callbacks about the opening and closing of browsers.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

class CefClient;

// Creation, popups and closing, on the UI thread.
class CefLifeSpanHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_window_open_disposition_t WindowOpenDisposition;

  virtual bool OnBeforePopup(CefRefPtr<CefBrowser> /*browser*/,
                             CefRefPtr<CefFrame> /*frame*/,
                             const CefString& /*target_url*/,
                             const CefString& /*target_frame_name*/,
                             WindowOpenDisposition /*target_disposition*/,
                             bool /*user_gesture*/,
                             const CefPopupFeatures& /*popupFeatures*/,
                             CefWindowInfo& /*windowInfo*/,
                             CefRefPtr<CefClient>& /*client*/,
                             CefBrowserSettings& /*settings*/,
                             CefRefPtr<CefDictionaryValue>& /*extra_info*/,
                             bool* /*no_javascript_access*/) {
    return false;
  }
  virtual void OnBeforeDevToolsPopup(CefRefPtr<CefBrowser> /*browser*/,
                                     CefWindowInfo& /*windowInfo*/,
                                     CefRefPtr<CefClient>& /*client*/,
                                     CefBrowserSettings& /*settings*/,
                                     CefRefPtr<CefDictionaryValue>& /*extra_info*/,
                                     bool* /*use_default_window*/) {}
  virtual void OnAfterCreated(CefRefPtr<CefBrowser> /*browser*/) {}
  virtual bool DoClose(CefRefPtr<CefBrowser> /*browser*/) { return false; }
  virtual void OnBeforeClose(CefRefPtr<CefBrowser> /*browser*/) {}
};
