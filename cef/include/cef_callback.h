#pragma once

#include "include/cef_base.h"

// Continues or cancels a pending operation. Each object is used once.
class CefCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue() = 0;
  virtual void Cancel() = 0;
};

// Hears about the end of an operation.
class CefCompletionCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnComplete() = 0;
};
