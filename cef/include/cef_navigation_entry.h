#pragma once

#include "include/cef_base.h"
#include "include/cef_ssl_status.h"

// One entry of the history. Valid only inside the visitor that hands it over.
class CefNavigationEntry : public virtual CefBaseRefCounted {
 public:
  typedef cef_transition_type_t TransitionType;

  virtual bool IsValid() = 0;
  virtual CefString GetURL() = 0;
  virtual CefString GetDisplayURL() = 0;
  virtual CefString GetOriginalURL() = 0;
  virtual CefString GetTitle() = 0;
  virtual TransitionType GetTransitionType() = 0;
  virtual bool HasPostData() = 0;
  virtual CefBaseTime GetCompletionTime() = 0;
  virtual int GetHttpStatusCode() = 0;
  virtual CefRefPtr<CefSSLStatus> GetSSLStatus() = 0;
};
