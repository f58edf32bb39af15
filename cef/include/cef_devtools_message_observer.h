// include/cef_devtools_message_observer.h of CEF 123, as far as it is used here:
// callbacks for messages of the DevTools protocol.
#pragma once

#include "include/cef_base.h"

class CefBrowser;

// Receives the results and events of the DevTools protocol, on the UI thread.
class CefDevToolsMessageObserver : public virtual CefBaseRefCounted {
 public:
  virtual bool OnDevToolsMessage(CefRefPtr<CefBrowser> /*browser*/,
                                 const void* /*message*/,
                                 size_t /*message_size*/) {
    return false;
  }
  virtual void OnDevToolsMethodResult(CefRefPtr<CefBrowser> /*browser*/,
                                      int /*message_id*/,
                                      bool /*success*/,
                                      const void* /*result*/,
                                      size_t /*result_size*/) {}
  virtual void OnDevToolsEvent(CefRefPtr<CefBrowser> /*browser*/,
                               const CefString& /*method*/,
                               const void* /*params*/,
                               size_t /*params_size*/) {}
  virtual void OnDevToolsAgentAttached(CefRefPtr<CefBrowser> /*browser*/) {}
  virtual void OnDevToolsAgentDetached(CefRefPtr<CefBrowser> /*browser*/) {}
};
