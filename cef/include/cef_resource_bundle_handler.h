#pragma once

#include "include/cef_base.h"

// Supplies texts and data in place of the engine's own.
class CefResourceBundleHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_scale_factor_t ScaleFactor;

  virtual bool GetLocalizedString(int string_id, CefString& string) = 0;
  virtual bool GetDataResource(int resource_id, void*& data, size_t& data_size) = 0;
  virtual bool GetDataResourceForScale(int resource_id,
                                       ScaleFactor scale_factor,
                                       void*& data,
                                       size_t& data_size) = 0;
};
