// Recognises the language cookie, by its name alone, and keeps its value for the process.

#include "bridge/cookie_language.h"

#include <string>

#include "utils/flat_json.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

constexpr std::wstring_view kLanguageCookie = L"lorvlang";

}  // namespace

void CaptureLanguage(std::wstring_view cookie_name, std::wstring_view cookie_value) {
  if (cookie_name == kLanguageCookie) {
    SetCookieLanguage(std::wstring(cookie_value));
  }
}

void CaptureLanguageOf(std::wstring_view cookie_text) {
  // Hardly any text does, so hardly any need be taken apart.
  if (cookie_text.find(kLanguageCookie) == std::wstring_view::npos) {
    return;
  }
  const FlatJson<wchar_t> members = ReadFlatJson(cookie_text);
  const std::wstring_view name = MemberText(members, std::wstring_view(L"name"));
  CaptureLanguage(name, MemberText(members, std::wstring_view(L"value")));
}

}  // namespace kzcef
