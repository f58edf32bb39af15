// The handler of JavaScript's dialogs that every client has towards the engine.
//
// With CEF 123 a page's alert, confirm and prompt showed a dialog. The engine shows one for the
// foremost tab of a window of Chrome's only: elsewhere alert does nothing, and confirm and prompt
// are refused. So the binding shows the dialogs itself.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// CEF's own classes, which stand here because hosts of this program have no use for them: what the
// product includes has no handler of JavaScript's dialogs.

class CefJSDialogCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(bool success, const CefString& user_input) = 0;
};

class CefJSDialogHandler : public virtual CefBaseRefCounted {
 public:
  virtual bool OnJSDialog(CefRefPtr<CefBrowser> browser,
                          const CefString& origin_url,
                          cef_jsdialog_type_t dialog_type,
                          const CefString& message_text,
                          const CefString& default_prompt_text,
                          CefRefPtr<CefJSDialogCallback> callback,
                          bool& suppress_message) = 0;
  virtual bool OnBeforeUnloadDialog(CefRefPtr<CefBrowser> browser,
                                    const CefString& message_text,
                                    bool is_reload,
                                    CefRefPtr<CefJSDialogCallback> callback) = 0;
  virtual void OnResetDialogState(CefRefPtr<CefBrowser> browser) = 0;
  virtual void OnDialogClosed(CefRefPtr<CefBrowser> browser) = 0;
};

namespace cefbinding {

// The handler, which all browsers share. Called on TID_UI.
CefRefPtr<CefJSDialogHandler> JavaScriptDialogs();

// Takes down the dialog of a browser that is closing, if it has one. On TID_UI.
void DismissDialogOf(int browser_id);

}  // namespace cefbinding
