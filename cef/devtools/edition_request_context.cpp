#include "devtools/edition_request_context.h"

#include "devtools/engine.h"
#include "devtools/engine_threads.h"

namespace cefedition {
namespace {

constexpr char kAcceptLanguages[] = "intl.accept_languages";

std::mutex g_global_lock;

CefRefPtr<EditionRequestContext>& GlobalSlot() {
  static CefRefPtr<EditionRequestContext> global;
  return global;
}

void CompleteLater(CefRefPtr<CefCompletionCallback> callback) {
  if (callback) {
    PostToUi([callback] { callback->OnComplete(); });
  }
}

}  // namespace

CefRefPtr<EditionRequestContext> EditionRequestContext::Global() {
  std::lock_guard hold(g_global_lock);
  CefRefPtr<EditionRequestContext>& global = GlobalSlot();
  if (!global && Engine::Get()) {
    global = new EditionRequestContext(/*is_global=*/true, nullptr);
  }
  return global;
}

void EditionRequestContext::ResetGlobal() {
  std::lock_guard hold(g_global_lock);
  GlobalSlot() = nullptr;
}

EditionRequestContext::EditionRequestContext(bool is_global,
                                             CefRefPtr<CefRequestContextHandler> handler)
    : is_global_(is_global), handler_(handler) {
  if (const std::shared_ptr<Engine> engine = Engine::Get()) {
    CefRefPtr<CefValue> languages = CefValue::Create();
    languages->SetString(engine->accept_languages());
    preferences_[kAcceptLanguages] = languages;
  }
}

bool EditionRequestContext::HasPreference(const CefString& name) {
  std::lock_guard hold(lock_);
  return preferences_.contains(name.ToString());
}

CefRefPtr<CefValue> EditionRequestContext::GetPreference(const CefString& name) {
  std::lock_guard hold(lock_);
  const auto found = preferences_.find(name.ToString());
  return found != preferences_.end() ? found->second->Copy() : nullptr;
}

CefRefPtr<CefDictionaryValue> EditionRequestContext::GetAllPreferences(bool) {
  std::lock_guard hold(lock_);
  CefRefPtr<CefDictionaryValue> all = CefDictionaryValue::Create();
  for (const auto& [name, value] : preferences_) {
    all->SetValue(name, value->Copy());
  }
  return all;
}

bool EditionRequestContext::CanSetPreference(const CefString& name) {
  return !name.empty();
}

bool EditionRequestContext::SetPreference(const CefString& name,
                                          CefRefPtr<CefValue> value,
                                          CefString& error) {
  if (name.empty()) {
    error = "The preference has no name";
    return false;
  }
  const std::string key = name.ToString();
  const bool is_languages = key == kAcceptLanguages;
  if (is_languages && value && value->GetType() != VTYPE_STRING) {
    error = "The preference is a string";
    return false;
  }
  {
    std::lock_guard hold(lock_);
    if (value) {
      preferences_[key] = value->Copy();
    } else {
      preferences_.erase(key);
    }
  }
  const std::shared_ptr<Engine> engine = Engine::Get();
  if (is_global_ && is_languages && value && engine) {
    engine->SetAcceptLanguages(value->GetString().ToString());
  }
  return true;
}

bool EditionRequestContext::IsSame(CefRefPtr<CefRequestContext> other) {
  return other.get() == this;
}

bool EditionRequestContext::IsSharingWith(CefRefPtr<CefRequestContext> other) {
  return other != nullptr;
}

bool EditionRequestContext::IsGlobal() {
  return is_global_;
}

CefRefPtr<CefRequestContextHandler> EditionRequestContext::GetHandler() {
  return handler_;
}

CefString EditionRequestContext::GetCachePath() {
  const std::shared_ptr<Engine> engine = Engine::Get();
  return engine ? engine->cache_path() : std::wstring();
}

CefRefPtr<CefCookieManager> EditionRequestContext::GetCookieManager(
    CefRefPtr<CefCompletionCallback> callback) {
  return CefCookieManager::GetGlobalManager(callback);
}

bool EditionRequestContext::RegisterSchemeHandlerFactory(const CefString&,
                                                         const CefString&,
                                                         CefRefPtr<CefSchemeHandlerFactory>) {
  return false;
}

bool EditionRequestContext::ClearSchemeHandlerFactories() {
  return false;
}

void EditionRequestContext::ClearCertificateExceptions(CefRefPtr<CefCompletionCallback> callback) {
  CompleteLater(callback);
}

void EditionRequestContext::ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback> callback) {
  CompleteLater(callback);
}

void EditionRequestContext::CloseAllConnections(CefRefPtr<CefCompletionCallback> callback) {
  CompleteLater(callback);
}

void EditionRequestContext::ResolveHost(const CefString&, CefRefPtr<CefResolveCallback> callback) {
  if (callback) {
    PostToUi([callback] { callback->OnResolveCompleted(ERR_FAILED, {}); });
  }
}

}  // namespace cefedition

CefRefPtr<CefRequestContext> CefRequestContext::GetGlobalContext() {
  return cefedition::EditionRequestContext::Global();
}

CefRefPtr<CefRequestContext> CefRequestContext::CreateContext(
    const CefRequestContextSettings&,
    CefRefPtr<CefRequestContextHandler> handler) {
  if (!cefedition::Engine::Get()) {
    return nullptr;
  }
  return new cefedition::EditionRequestContext(/*is_global=*/false, handler);
}

CefRefPtr<CefRequestContext> CefRequestContext::CreateContext(
    CefRefPtr<CefRequestContext> other,
    CefRefPtr<CefRequestContextHandler> handler) {
  return other ? CreateContext(CefRequestContextSettings(), handler) : nullptr;
}

CefRefPtr<CefPreferenceManager> CefPreferenceManager::GetGlobalPreferenceManager() {
  return cefedition::EditionRequestContext::Global();
}
