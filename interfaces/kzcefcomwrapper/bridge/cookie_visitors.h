// The two visitors by which the bridge reads CEF's cookie store.
#pragma once

#include <memory>

#include "bridge/cookie_texts.h"
#include "include/cef_cookie.h"
#include "include/cef_waitable_event.h"

namespace kzcef {

// Collects the cookies that CEF visits, on its UI thread; leaves them in the store and always asks
// for more. A cookie for which there is no memory is left out.
class kzCefCookieVisitor final : public CefCookieVisitor {
 public:
  kzCefCookieVisitor() = default;

  bool Visit(const CefCookie& cookie, int count, int total, bool& delete_cookie) override;

  CookieTexts& texts() { return texts_; }

 private:
  CookieTexts texts_;

  IMPLEMENT_REFCOUNTING(kzCefCookieVisitor);
};

// The same for a read that waits: sets with every cookie how many there are in all, and wakes the
// waiting thread when CEF releases the visitor. Shares its list with that thread, so that only CEF
// holds the visitor itself.
class kzCefCookieVisitorSync final : public CefCookieVisitor {
 public:
  kzCefCookieVisitorSync(CefRefPtr<CefWaitableEvent> event, std::shared_ptr<CookieTexts> texts);
  ~kzCefCookieVisitorSync() override;

  bool Visit(const CefCookie& cookie, int count, int total, bool& delete_cookie) override;

 private:
  const CefRefPtr<CefWaitableEvent> event_;
  const std::shared_ptr<CookieTexts> texts_;

  IMPLEMENT_REFCOUNTING(kzCefCookieVisitorSync);
};

// The number of cookies in all that the latest call of kzCefCookieVisitorSync::Visit was told; one
// number for the process. Any thread.
int ExpectedCookieTotal();
void SetExpectedCookieTotal(int total);

}  // namespace kzcef
