#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <exception>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bridge/cookie_text.h"
#include "bridge/kz_cef_bridge_impl.h"
#include "com/text.h"
#include "include/cef_cookie.h"
#include "measure.h"
#include "recording_cef/recording_cef.h"
#include "recording_cef/scripted_cookie_store.h"
#include "utils/flat_json.h"

namespace kzbench {
namespace {

using kzcef::UniqueBstr;
using kzcef::ViewOf;

constexpr int kCookies = 10'000;

// As an engine keeps them.
struct Record {
  std::string domain;
  std::string name;
  std::string value;
};

std::vector<Record> MakeRecords(int count) {
  std::vector<Record> records;
  for (int at = 0; at < count; ++at) {
    const std::string number = std::to_string(at);
    records.push_back({".host" + number + ".intranet.test", "session_" + number,
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

// A store that makes each cookie from its record while it is visited, as an engine must.
CefRefPtr<CefCookieManager> StoreOf(std::vector<Record> records) {
  return new recording_cef::ScriptedCookieStore(
      [records = std::move(records)](const CefRefPtr<CefCookieVisitor>& visitor) {
        const int total = static_cast<int>(records.size());
        for (int at = 0; at < total; ++at) {
          bool remove = false;
          visitor->Visit(CookieOf(records[static_cast<std::size_t>(at)]), at, total, remove);
        }
        return true;
      });
}

class CountingVisitor final : public CefCookieVisitor {
 public:
  bool Visit(const CefCookie&, int, int, bool&) override {
    ++count_;
    return true;
  }
  int count() const { return count_; }

 private:
  int count_ = 0;

  IMPLEMENT_REFCOUNTING(CountingVisitor);
};

void Expect(bool holds, const char* what) {
  if (!holds)
    throw std::runtime_error(what);
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

void CompareVisits(const std::vector<Record>& records, const Effort& effort) {
  const CefRefPtr<CefCookieManager> store = StoreOf(records);
  recording_cef::RecordingCef& cef = recording_cef::RecordingCef::Get();
  cef.cookie_manager = store;
  Compare(
      "GetCookiesSync of all, against the bare visit", 2.0, effort,
      [&] {
        return TimePerCall(1, [&](int) {
          VARIANT list = kzcef::BridgeSingleton().GetCookiesSync(true, nullptr);
          Expect(list.vt == (VT_ARRAY | VT_BSTR) &&
                     list.parray->rgsabound[0].cElements == records.size(),
                 "cookies are missing");
          VariantClear(&list);
        });
      },
      [&] {
        return TimePerCall(1, [&](int) {
          const CefRefPtr<CountingVisitor> visitor = new CountingVisitor;
          store->VisitAllCookies(visitor);
          Expect(static_cast<std::size_t>(visitor->count()) == records.size(),
                 "cookies are missing");
        });
      });
  cef.Reset();
}

void RunCookies(const Effort& effort) {
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
  CompareVisits(records, effort);
}

}  // namespace
}  // namespace kzbench

// A program of its own: the cookie store is the benchmark's, in place of an engine's.
int main(int count, char** words) try {
  const std::string_view word = count == 2 ? words[1] : "";
  if (count > 2 || (count == 2 && word != "--short")) {
    std::fputs("kzbench_cookies [--short]\n", stderr);
    return 2;
  }
  kzbench::RunCookies(kzbench::EffortOf(count == 2));
  return 0;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "kzbench_cookies: %s\n", failure.what());
  return 1;
}
