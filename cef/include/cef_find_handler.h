#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// Results of CefBrowserHost::Find, on the UI thread.
class CefFindHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnFindResult(CefRefPtr<CefBrowser> browser,
                            int identifier,
                            int count,
                            const CefRect& selectionRect,
                            int activeMatchOrdinal,
                            bool finalUpdate) {}
};
