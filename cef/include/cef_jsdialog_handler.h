#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// Answers a JavaScript dialog.
class CefJSDialogCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(bool success, const CefString& user_input) = 0;
};

// JavaScript dialogs, on the UI thread.
class CefJSDialogHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_jsdialog_type_t JSDialogType;

  virtual bool OnJSDialog(CefRefPtr<CefBrowser> browser,
                          const CefString& origin_url,
                          JSDialogType dialog_type,
                          const CefString& message_text,
                          const CefString& default_prompt_text,
                          CefRefPtr<CefJSDialogCallback> callback,
                          bool& suppress_message) {
    return false;
  }
  virtual bool OnBeforeUnloadDialog(CefRefPtr<CefBrowser> browser,
                                    const CefString& message_text,
                                    bool is_reload,
                                    CefRefPtr<CefJSDialogCallback> callback) {
    return false;
  }
  virtual void OnResetDialogState(CefRefPtr<CefBrowser> browser) {}
  virtual void OnDialogClosed(CefRefPtr<CefBrowser> browser) {}
};
