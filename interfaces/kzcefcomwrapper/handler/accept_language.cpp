// Compares the engine's preference with the host's list and writes it only where they differ.

#include "handler/accept_language.h"

#include "include/cef_request_context.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

constexpr char kPreference[] = "intl.accept_languages";

CefString Preference(const CefRefPtr<CefRequestContext>& context) {
  const CefRefPtr<CefValue> value = context->GetPreference(kPreference);
  return value ? CefString(value->GetString()) : CefString();
}

}  // namespace

void AlignAcceptLanguages() {
  if (IsAcceptLanguageOverridden()) {
    return;
  }
  const CefRefPtr<CefRequestContext> context = CefRequestContext::GetGlobalContext();
  if (!context) {
    return;
  }
  const CefString wanted = AcceptLanguageList();
  if (Preference(context) == wanted) {
    return;
  }
  const CefRefPtr<CefValue> value = CefValue::Create();
  value->SetString(wanted);
  CefString error;
  context->SetPreference(kPreference, value, error);
}

}  // namespace kzcef
