#pragma once

#include "include/cef_base.h"

// Receives a text.
class CefStringVisitor : public virtual CefBaseRefCounted {
 public:
  virtual void Visit(const CefString& string) = 0;
};
