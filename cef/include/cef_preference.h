// include/cef_preference.h of CEF 123, as far as it is used here:
// reading and writing the engine's preferences.
#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_values.h"

// Reads and writes preferences. UI thread.
class CefPreferenceManager : public virtual CefBaseRefCounted {
 public:
  virtual bool HasPreference(const CefString& name) = 0;
  virtual CefRefPtr<CefValue> GetPreference(const CefString& name) = 0;
  virtual CefRefPtr<CefDictionaryValue> GetAllPreferences(bool include_defaults) = 0;
  virtual bool CanSetPreference(const CefString& name) = 0;
  virtual bool SetPreference(const CefString& name,
                             CefRefPtr<CefValue> value,
                             CefString& error) = 0;
};
