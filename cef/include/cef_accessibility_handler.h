#pragma once

#include "include/cef_values.h"

// Changes of the accessibility tree.
class CefAccessibilityHandler : public virtual CefBaseRefCounted {
 public:
  virtual void OnAccessibilityTreeChange(CefRefPtr<CefValue> value) = 0;
  virtual void OnAccessibilityLocationChange(CefRefPtr<CefValue> value) = 0;
};
