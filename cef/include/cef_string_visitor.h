// include/cef_string_visitor.h of CEF 123, as far as it is used here: the
// receiver of a text that the engine supplies later.
#pragma once

#include "include/cef_base.h"

// Receives a text.
class CefStringVisitor : public virtual CefBaseRefCounted {
 public:
  virtual void Visit(const CefString& string) = 0;
};
