// include/cef_callback.h of CEF 123, as far as it is used here:
// callbacks that continue or end an operation.
#pragma once

#include "include/cef_base.h"

// Continues or cancels a pending operation. Each object is used once.
class CefCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue() = 0;
  virtual void Cancel() = 0;
};

// Is told when an operation has ended.
class CefCompletionCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnComplete() = 0;
};
