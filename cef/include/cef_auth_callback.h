#pragma once

#include "include/cef_base.h"

// Answers a request for credentials.
class CefAuthCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(const CefString& username, const CefString& password) = 0;
  virtual void Cancel() = 0;
};
