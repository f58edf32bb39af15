// Collects the cookies that CEF visits as texts. The destruction of a waiting read's visitor tells
// that no more can come, because CEF says so in no other way.

#include "bridge/cookie_visitors.h"

#include <atomic>
#include <utility>

#include "bridge/cookie_text.h"
#include "handler/contained_notification.h"

namespace kzcef {
namespace {

std::atomic<int> g_expected_total = 0;

void Collect(CookieTexts& texts, const CefCookie& cookie) noexcept {
  Contained([&] { texts.Append(CookieText(cookie)); });
}

}  // namespace

bool kzCefCookieVisitor::Visit(const CefCookie& cookie,
                               int /*count*/,
                               int /*total*/,
                               bool& /*delete_cookie*/) {
  Collect(texts_, cookie);
  return true;
}

kzCefCookieVisitorSync::kzCefCookieVisitorSync(CefRefPtr<CefWaitableEvent> event,
                                               std::shared_ptr<CookieTexts> texts)
    : event_(std::move(event)), texts_(std::move(texts)) {}

kzCefCookieVisitorSync::~kzCefCookieVisitorSync() {
  texts_->Close();
  event_->Signal();
}

bool kzCefCookieVisitorSync::Visit(const CefCookie& cookie,
                                   int /*count*/,
                                   int total,
                                   bool& /*delete_cookie*/) {
  // Before the cookie itself: a list that is as long as the number says must be whole.
  SetExpectedCookieTotal(total);
  Collect(*texts_, cookie);
  return true;
}

int ExpectedCookieTotal() {
  return g_expected_total;
}

void SetExpectedCookieTotal(int total) {
  g_expected_total = total;
}

}  // namespace kzcef
