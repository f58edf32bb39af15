// What every holder of preferences can do.
#pragma once

#include "binding.h"
#include "include/cef_preference.h"

namespace cefbinding {

// Base of the objects of `Class`, a CefPreferenceManager whose structure begins with that of one.
template <class Class>
class PreferenceMethods : public LibraryObject<Class> {
 public:
  bool HasPreference(const CefString& name) override {
    return this->Call(&Manager::has_preference, Needed(name));
  }
  CefRefPtr<CefValue> GetPreference(const CefString& name) override {
    return this->Call(&Manager::get_preference, Needed(name));
  }
  CefRefPtr<CefDictionaryValue> GetAllPreferences(bool include_defaults) override {
    return this->Call(&Manager::get_all_preferences, include_defaults);
  }
  bool CanSetPreference(const CefString& name) override {
    return this->Call(&Manager::can_set_preference, Needed(name));
  }
  bool SetPreference(const CefString& name, CefRefPtr<CefValue> value, CefString& error) override {
    return this->Call(&Manager::set_preference, Needed(name), value, &error);
  }

 protected:
  using LibraryObject<Class>::LibraryObject;

 private:
  using Manager = capi::cef_preference_manager_t;
};

}  // namespace cefbinding
