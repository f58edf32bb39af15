// A request context whose preferences and cookie store are the test's.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "include/cef_request_context.h"

namespace recording_cef {

// A request context for tests that keeps preferences in memory and writes down what is set.
class FakeRequestContext final : public CefRequestContext {
 public:
  std::map<CefString, CefRefPtr<CefValue>> preferences;
  // Every successful SetPreference, in order.
  std::vector<std::pair<CefString, CefRefPtr<CefValue>>> set_preferences;
  // When false, SetPreference fails with |set_error|.
  bool can_set = true;
  CefString set_error = "refused";
  CefString cache_path;
  CefRefPtr<CefCookieManager> cookie_manager;
  int cleared_credentials = 0;
  int cleared_exceptions = 0;

  bool HasPreference(const CefString& name) override { return preferences.contains(name); }
  CefRefPtr<CefValue> GetPreference(const CefString& name) override {
    const auto found = preferences.find(name);
    return found == preferences.end() ? nullptr : found->second;
  }
  CefRefPtr<CefDictionaryValue> GetAllPreferences(bool) override {
    CefRefPtr<CefDictionaryValue> all = CefDictionaryValue::Create();
    for (const auto& [name, value] : preferences) {
      all->SetValue(name, value->Copy());
    }
    return all;
  }
  bool CanSetPreference(const CefString&) override { return can_set; }
  bool SetPreference(const CefString& name, CefRefPtr<CefValue> value, CefString& error) override {
    if (!can_set) {
      error = set_error;
      return false;
    }
    preferences[name] = value;
    set_preferences.emplace_back(name, value);
    return true;
  }

  bool IsSame(CefRefPtr<CefRequestContext> other) override { return other.get() == this; }
  bool IsSharingWith(CefRefPtr<CefRequestContext> other) override { return other.get() == this; }
  bool IsGlobal() override { return true; }
  CefString GetCachePath() override { return cache_path; }
  CefRefPtr<CefCookieManager> GetCookieManager(CefRefPtr<CefCompletionCallback>) override {
    return cookie_manager;
  }
  void ClearCertificateExceptions(CefRefPtr<CefCompletionCallback> callback) override {
    ++cleared_exceptions;
    Complete(callback);
  }
  void ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback> callback) override {
    ++cleared_credentials;
    Complete(callback);
  }
  void CloseAllConnections(CefRefPtr<CefCompletionCallback> callback) override {
    Complete(callback);
  }

 private:
  static void Complete(const CefRefPtr<CefCompletionCallback>& callback) {
    if (callback) {
      callback->OnComplete();
    }
  }

  IMPLEMENT_REFCOUNTING(FakeRequestContext);
};

}  // namespace recording_cef
