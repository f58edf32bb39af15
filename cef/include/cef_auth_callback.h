// include/cef_auth_callback.h of CEF 123, as far as it is used here:
// the way to answer a request for credentials.
#pragma once

#include "include/cef_base.h"

// Answers a request for credentials.
class CefAuthCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(const CefString& username, const CefString& password) = 0;
  virtual void Cancel() = 0;
};
