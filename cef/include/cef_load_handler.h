// include/cef_load_handler.h of CEF 123, as far as it is used
// here: callbacks about the loading of pages.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_frame.h"

// Load status, on the UI thread.
class CefLoadHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_errorcode_t ErrorCode;
  typedef cef_transition_type_t TransitionType;

  virtual void OnLoadingStateChange(CefRefPtr<CefBrowser> /*browser*/,
                                    bool /*isLoading*/,
                                    bool /*canGoBack*/,
                                    bool /*canGoForward*/) {}
  virtual void OnLoadStart(CefRefPtr<CefBrowser> /*browser*/,
                           CefRefPtr<CefFrame> /*frame*/,
                           TransitionType /*transition_type*/) {}
  virtual void OnLoadEnd(CefRefPtr<CefBrowser> /*browser*/,
                         CefRefPtr<CefFrame> /*frame*/,
                         int /*httpStatusCode*/) {}
  virtual void OnLoadError(CefRefPtr<CefBrowser> /*browser*/,
                           CefRefPtr<CefFrame> /*frame*/,
                           ErrorCode /*errorCode*/,
                           const CefString& /*errorText*/,
                           const CefString& /*failedUrl*/) {}
};
