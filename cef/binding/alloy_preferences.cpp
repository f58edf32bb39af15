// What CEF 123 did by itself, and the engine does only with the right preferences.

#include "alloy_preferences.h"

#include <string>

#include "include/cef_cookie.h"
#include "include/cef_request_context.h"
#include "include/cef_values.h"
#include "log.h"

namespace cefbinding {
namespace {

// Chrome's services that show something of their own or ask servers of their own.
constexpr const char* kUnwanted[] = {
    "allow_dinosaur_easter_egg",
    "alternate_error_pages.enabled",
    "autofill.credit_card_enabled",
    "autofill.profile_enabled",
    "credentials_enable_autosignin",
    "credentials_enable_service",
    "safebrowsing.enabled",
    "safebrowsing.enhanced",
    "safebrowsing.scout_reporting_enabled",
    "search.suggest_enabled",
    "signin.allowed_on_next_startup",
    "spellcheck.use_spelling_service",
    "translate.enabled",
    "url_keyed_anonymized_data_collection.enabled",
};

// Chrome's constants: neither preconnects nor prefetches; a page's second download asks nobody.
constexpr int kNoPrediction = 2;
constexpr int kAllow = 1;

// The preferences that an accept-language list sets for this run and all later ones.
constexpr const char* kLanguages[] = {"intl.accept_languages", "intl.selected_languages"};

void Set(CefRequestContext& context, const char* name, CefRefPtr<CefValue> value) {
  CefString error;
  if (!context.SetPreference(name, value, error)) {
    LogError((std::string("the preference ") + name + " cannot be set: ").c_str(),
             error.ToString().c_str());
  }
}

CefRefPtr<CefValue> False() {
  CefRefPtr<CefValue> value = CefValue::Create();
  value->SetBool(false);
  return value;
}

CefRefPtr<CefValue> Number(int number) {
  CefRefPtr<CefValue> value = CefValue::Create();
  value->SetInt(number);
  return value;
}

class SessionCookieRemover final : public CefCookieVisitor {
  bool Visit(const CefCookie& cookie, int /*count*/, int /*total*/, bool& deleteCookie) override {
    deleteCookie = cookie.has_expires == 0;
    return true;
  }

  IMPLEMENT_REFCOUNTING(SessionCookieRemover);
};

}  // namespace

void RestorePreferences(const AlloyOptions& options) {
  const CefRefPtr<CefRequestContext> context = CefRequestContext::GetGlobalContext();
  if (!context) {
    return;
  }
  for (const char* const name : kUnwanted) {
    Set(*context, name, False());
  }
  Set(*context, "net.network_prediction_options", Number(kNoPrediction));
  Set(*context, "profile.default_content_setting_values.automatic_downloads", Number(kAllow));
  if (!options.has_languages) {
    for (const char* const name : kLanguages) {
      // No value stands for the default one.
      Set(*context, name, nullptr);
    }
  }
  // CEF 123 forgot a certificate that a user had accepted with the process.
  context->ClearCertificateExceptions(nullptr);
  // The engine decides at its end, not at its start, whether session cookies outlive a run.
  if (!options.keeps_session_cookies) {
    if (const CefRefPtr<CefCookieManager> cookies = context->GetCookieManager(nullptr)) {
      cookies->VisitAllCookies(new SessionCookieRemover);
    }
  }
}

}  // namespace cefbinding
