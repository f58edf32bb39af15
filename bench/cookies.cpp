// Cookies: their texts, and the store of a running engine.

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <atomic>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "KZCEFComWrapper.h"
#include "benchmarks.h"
#include "bridge/cookie_text.h"
#include "com/text.h"
#include "include/cef_cookie.h"
#include "server_view.h"
#include "utils/flat_json.h"

namespace kzbench {
namespace {

using kzcef::UniqueBstr;
using kzcef::ViewOf;

constexpr int kCookies = 10'000;

struct Record {
  std::string domain;
  std::string name;
  std::string value;
};

std::vector<Record> MakeRecords(int count) {
  std::vector<Record> records;
  for (int at = 0; at < count; ++at) {
    const std::string number = std::to_string(at);
    // Each of another site: the engine keeps at most 180 of one.
    records.push_back({"host" + number + ".test", "session_" + number,
                       "MTIzNDU2Nzg5MGFiY2RlZmdoaWprbG1ub3BxcnN0dXY" + number});
  }
  return records;
}

CefCookie CookieOf(const Record& record) {
  CefCookie cookie;
  CefString(&cookie.domain) = record.domain;
  CefString(&cookie.name) = record.name;
  CefString(&cookie.value) = record.value;
  return cookie;
}

void Expect(bool holds, const char* what) {
  if (!holds)
    throw std::runtime_error(what);
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

void Fill(CefCookieManager& store, const std::vector<Record>& records) {
  const UniqueHandle done = MakeEvent();
  const CefRefPtr<SetCounter> counter =
      new SetCounter(static_cast<int>(records.size()), done.get());
  for (const Record& record : records) {
    const bool asked = store.SetCookie("http://" + record.domain + "/", CookieOf(record), counter);
    Expect(asked, "a cookie cannot be set");
  }
  AwaitEvent(done.get(), "the cookies to be set");
  Expect(counter->failures() == 0, "a cookie was refused");
}

int VisitAll(CefCookieManager& store) {
  const UniqueHandle done = MakeEvent();
  std::atomic<int> count = 0;
  Expect(store.VisitAllCookies(new CountingVisitor(done.get(), count)), "no visit of the store");
  // As the server waits: without a look at window messages.
  WaitForSingleObject(done.get(), INFINITE);
  return count;
}

void CompareTexts(const std::vector<CefCookie>& cookies,
                  const std::vector<UniqueBstr>& texts,
                  const Effort& effort) {
  const auto fill = [&](const auto& sources, const auto& make) {
    return TimePerCall(1, [&](int) {
      std::vector<UniqueBstr> made;
      made.reserve(sources.size());
      for (const auto& source : sources)
        made.push_back(make(source));
    });
  };
  Compare(
      "cookie texts, against copying them", 1.5, effort,
      [&] {
        return fill(cookies, [](const CefCookie& cookie) { return kzcef::CookieText(cookie); });
      },
      [&] {
        return fill(texts, [](const UniqueBstr& text) {
          const std::wstring_view view = ViewOf(text.get());
          return UniqueBstr(SysAllocStringLen(view.data(), static_cast<UINT>(view.size())));
        });
      });
}

void CompareReaders(const std::vector<UniqueBstr>& texts, const Effort& effort) {
  const auto read = [&](const auto& read_name) {
    return [&] {
      return TimePerCall(1, [&](int) {
        std::size_t length = 0;
        for (const UniqueBstr& text : texts)
          length += read_name(ViewOf(text.get()));
        Expect(length > 0, "no name was read");
      });
    };
  };
  Compare("flat JSON reader, against nlohmann::json", 0.5, effort, read([](std::wstring_view text) {
            return kzcef::MemberText(kzcef::ReadFlatJson(text), std::wstring_view(L"name")).size();
          }),
          read([](std::wstring_view text) {
            return nlohmann::json::parse(text)["name"].get_ref<const std::string&>().size();
          }));
}

// The server and the bare visit are two clients of one engine, and so of one store.
void CompareVisits(const std::wstring& server_path,
                   const std::vector<Record>& records,
                   const Effort& effort) {
  const ServerEngine engine(server_path, std::nullopt);
  const ServerView view(engine.application(), L"about:blank");
  const CefRefPtr<CefCookieManager> store = CefCookieManager::GetGlobalManager(nullptr);
  Expect(store != nullptr, "the engine has no cookie store");
  Fill(*store, records);
  const int kept = VisitAll(*store);
  Expect(static_cast<std::size_t>(kept) == records.size(), "the engine does not keep all cookies");
  const auto manager =
      engine.server().Create<IKZCEFComCookieManager>(__uuidof(KZCEFComCookieManager));
  Compare(
      "GetAllCookiesSync, against the bare visit", 2.0, effort,
      [&] {
        return TimePerCall(1, [&](int) {
          VARIANT list;
          Check(manager->GetAllCookiesSync(&list), "reading all cookies");
          Expect(list.vt == (VT_ARRAY | VT_BSTR) &&
                     list.parray->rgsabound[0].cElements == records.size(),
                 "cookies are missing");
          VariantClear(&list);
        });
      },
      [&] {
        return TimePerCall(1,
                           [&](int) { Expect(VisitAll(*store) == kept, "cookies are missing"); });
      });
}

}  // namespace

void RunCookies(const std::wstring& server, const Effort& effort) {
  const std::vector<Record> records = MakeRecords(kCookies / effort.divisor);
  std::vector<CefCookie> cookies;
  std::vector<UniqueBstr> texts;
  for (const Record& record : records) {
    cookies.push_back(CookieOf(record));
    texts.push_back(kzcef::CookieText(cookies.back()));
  }
  PrintHeading(std::to_string(records.size()) + " cookies");
  CompareTexts(cookies, texts, effort);
  CompareReaders(texts, effort);
  CompareVisits(server, records, effort);
}

}  // namespace kzbench
