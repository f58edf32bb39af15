// include/cef_frame.h of CEF 123, as far as it is used here: one frame of a page.
#pragma once

#include "include/cef_base.h"
#include "include/cef_process_message.h"
#include "include/cef_request.h"
#include "include/cef_stream.h"
#include "include/cef_string_visitor.h"

class CefBrowser;

// One frame. Any thread of the browser process unless said otherwise.
class CefFrame : public virtual CefBaseRefCounted {
 public:
  virtual bool IsValid() = 0;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
  virtual void Cut() = 0;
  virtual void Copy() = 0;
  virtual void Paste() = 0;
  virtual void Delete() = 0;
  virtual void SelectAll() = 0;
  virtual void ViewSource() = 0;
  virtual void GetSource(CefRefPtr<CefStringVisitor> visitor) = 0;
  virtual void GetText(CefRefPtr<CefStringVisitor> visitor) = 0;
  virtual void LoadRequest(CefRefPtr<CefRequest> request) = 0;
  virtual void LoadURL(const CefString& url) = 0;
  virtual void ExecuteJavaScript(const CefString& code,
                                 const CefString& script_url,
                                 int start_line) = 0;
  virtual bool IsMain() = 0;
  virtual bool IsFocused() = 0;
  virtual CefString GetName() = 0;
  virtual CefString GetIdentifier() = 0;
  virtual CefRefPtr<CefFrame> GetParent() = 0;
  virtual CefString GetURL() = 0;
  virtual CefRefPtr<CefBrowser> GetBrowser() = 0;
  virtual void SendProcessMessage(CefProcessId target_process,
                                  CefRefPtr<CefProcessMessage> message) = 0;
};
