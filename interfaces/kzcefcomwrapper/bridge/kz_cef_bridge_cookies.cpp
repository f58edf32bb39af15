// The bridge's cookie operations.
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bridge/argument_text.h"
#include "bridge/cookie_language.h"
#include "bridge/cookie_list.h"
#include "bridge/cookie_visitors.h"
#include "bridge/kz_cef_bridge_impl.h"
#include "handler/contained_notification.h"
#include "utils/flat_json.h"

namespace kzcef {
namespace {

constexpr bool kIncludeHttpOnly = true;
constexpr int kWaitMilliseconds = 100;

// What the worker thread of a read is to visit: written before it starts, and again only after it
// has ended.
struct Visit {
  // The caller's text.
  const wchar_t* url = nullptr;
  // Kept until the next read: cookies may still come after this one has returned.
  CefRefPtr<kzCefCookieVisitor> target;
};
Visit g_visit;

// The worker thread of a read: it asks for the visit, and does not wait for it.
void RequestVisit() noexcept {
  Contained([] {
    if (const auto manager = CefCookieManager::GetGlobalManager(nullptr)) {
      manager->VisitUrlCookies(ToCefString(g_visit.url), kIncludeHttpOnly, g_visit.target);
    }
  });
}

// A secure cookie for the session, sent along from every site.
CefCookie CookieOf(std::wstring_view name, std::wstring_view value, std::wstring_view domain) {
  CefCookie cookie;
  CefString(&cookie.name) = std::wstring(name);
  CefString(&cookie.value) = std::wstring(value);
  CefString(&cookie.domain) = std::wstring(domain);
  cookie.secure = 1;
  cookie.same_site = CEF_COOKIE_SAME_SITE_NO_RESTRICTION;
  return cookie;
}

}  // namespace

void kzCefBridgeImpl::PrepareCookieAccess() {
  cookie_manager_ = CefCookieManager::GetGlobalManager(nullptr);
  cookie_visitor_ = new kzCefCookieVisitor;
}

VARIANT kzCefBridgeImpl::GetUrlCookies(const wchar_t* url) {
  if (!cookie_visitor_) {
    return NoCookies();
  }
  cookie_visitor_->texts().Clear();
  g_visit.url = url;
  g_visit.target = cookie_visitor_;
  std::thread worker(&RequestVisit);
  worker.join();
  // The list starts anew with the next read, and nobody looks at it until then.
  return CookieList(cookie_visitor_->texts().Take());
}

bool kzCefBridgeImpl::SetUrlCookies(const wchar_t* url, const wchar_t* cookie_json) {
  const FlatJson<wchar_t> members =
      ReadFlatJson(cookie_json ? std::wstring_view(cookie_json) : std::wstring_view());
  if (HasNoNamedMember(members)) {
    return false;
  }
  const std::wstring_view name = MemberText(members, std::wstring_view(L"name"));
  const std::wstring_view value = MemberText(members, std::wstring_view(L"value"));
  const std::wstring_view domain = MemberText(members, std::wstring_view(L"domain"));
  if (!cookie_manager_) {
    return false;
  }
  cookie_manager_->SetCookie(ToCefString(url), CookieOf(name, value, domain), nullptr);
  CaptureLanguage(name, value);
  return true;
}

VARIANT kzCefBridgeImpl::GetCookiesSync(bool all_cookies, const wchar_t* url) {
  if (!all_cookies && !url) {
    return NoCookies();
  }
  const auto event = CefWaitableEvent::CreateWaitableEvent(/*automatic_reset=*/true,
                                                           /*initially_signaled=*/false);
  const auto manager = CefCookieManager::GetGlobalManager(nullptr);
  if (!event || !manager) {
    return NoCookies();
  }
  const auto texts = std::make_shared<CookieTexts>();
  SetExpectedCookieTotal(0);
  // CEF alone holds the visitor, so that it goes, and ends the wait, once CEF is done with it.
  const bool is_visiting = all_cookies
                               ? manager->VisitAllCookies(new kzCefCookieVisitorSync(event, texts))
                               : manager->VisitUrlCookies(ToCefString(url), kIncludeHttpOnly,
                                                          new kzCefCookieVisitorSync(event, texts));
  if (!is_visiting) {
    return NoCookies();
  }
  // There is no time-out. But a visitor that is gone (the engine has ended, or there was no memory
  // for a cookie) brings no more cookies, and the counts would never agree.
  for (;;) {
    event->TimedWait(kWaitMilliseconds);
    if (auto complete = texts->TakeWhenComplete(ExpectedCookieTotal())) {
      return CookieList(*std::move(complete));
    }
  }
}

}  // namespace kzcef
