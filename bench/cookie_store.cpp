#include "cookie_store.h"

#include <windows.h>

#include <atomic>
#include <stdexcept>
#include <string>

#include "waiting.h"

namespace kzbench {
namespace {

void Expect(bool holds, const char* what) {
  if (!holds)
    throw std::runtime_error(what);
}

std::string SiteOf(int number) {
  return "host" + std::to_string(number) + ".test";
}

CefRefPtr<CefCookieManager> Store() {
  const CefRefPtr<CefCookieManager> store = CefCookieManager::GetGlobalManager(nullptr);
  Expect(store != nullptr, "the engine has no cookie store");
  return store;
}

// Counts, and tells when CEF lets go of it.
class CountingVisitor final : public CefCookieVisitor {
 public:
  CountingVisitor(HANDLE done, std::atomic<int>& count) : done_(done), count_(count) {}
  ~CountingVisitor() override { SetEvent(done_); }

  bool Visit(const CefCookie&, int, int, bool&) override {
    ++count_;
    return true;
  }

 private:
  const HANDLE done_;
  std::atomic<int>& count_;

  IMPLEMENT_REFCOUNTING(CountingVisitor);
};

class SetCounter final : public CefSetCookieCallback {
 public:
  SetCounter(int expected, HANDLE done) : left_(expected), done_(done) {}

  void OnComplete(bool success) override {
    failures_ += success ? 0 : 1;
    if (--left_ == 0)
      SetEvent(done_);
  }
  int failures() const { return failures_; }

 private:
  std::atomic<int> left_;
  std::atomic<int> failures_ = 0;
  const HANDLE done_;

  IMPLEMENT_REFCOUNTING(SetCounter);
};

}  // namespace

CefCookie BenchCookie(int number) {
  const std::string text = std::to_string(number);
  CefCookie cookie;
  CefString(&cookie.domain) = SiteOf(number);
  CefString(&cookie.name) = "session_" + text;
  CefString(&cookie.value) = "MTIzNDU2Nzg5MGFiY2RlZmdoaWprbG1ub3BxcnN0dXY" + text;
  return cookie;
}

void FillCookieStore(int count) {
  const CefRefPtr<CefCookieManager> store = Store();
  const UniqueHandle done = MakeEvent();
  const CefRefPtr<SetCounter> counter = new SetCounter(count, done.get());
  for (int at = 0; at < count; ++at) {
    const std::string url = "http://" + SiteOf(at) + "/";
    Expect(store->SetCookie(url, BenchCookie(at), counter), "a cookie cannot be set");
  }
  AwaitEvent(done.get(), "the cookies to be set");
  Expect(counter->failures() == 0, "the engine refuses a cookie");
  Expect(VisitCookieStore() == count, "the engine does not keep all cookies");
}

int VisitCookieStore() {
  const UniqueHandle done = MakeEvent();
  std::atomic<int> count = 0;
  Expect(Store()->VisitAllCookies(new CountingVisitor(done.get(), count)), "no visit is made");
  // As the server waits: without a look at window messages.
  WaitForSingleObject(done.get(), INFINITE);
  return count;
}

}  // namespace kzbench
