// Cookies: their texts, and the store of a running engine.

#include <windows.h>

#include <oleauto.h>

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "benchmarks.h"
#include "bridge/cookie_text.h"
#include "com/text.h"
#include "cookie_store.h"
#include "include/cef_cookie.h"
#include "side.h"
#include "utils/flat_json.h"

namespace kzbench {
namespace {

using kzcef::UniqueBstr;
using kzcef::ViewOf;

// The engine's store keeps 3,300 at most.
constexpr int kCookies = 3'000;

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

void CompareVisits(const LoaderOptions& options, int count, const Effort& effort) {
  Side served(options);
  served.Ask(Task::kFillCookieStore, count);
  Compare(
      "GetAllCookiesSync, against the bare visit", 2.0, effort,
      [&] { return served.Ask(Task::kReadCookies, count); },
      [&] { return served.Ask(Task::kVisitCookies, count); });
}

}  // namespace

void RunCookies(const LoaderOptions& options, const Effort& effort) {
  const int count = kCookies / effort.divisor;
  std::vector<CefCookie> cookies;
  std::vector<UniqueBstr> texts;
  for (int at = 0; at < count; ++at) {
    cookies.push_back(BenchCookie(at));
    texts.push_back(kzcef::CookieText(cookies.back()));
  }
  PrintHeading(std::to_string(count) + " cookies");
  CompareTexts(cookies, texts, effort);
  CompareReaders(texts, effort);
  CompareVisits(options, count, effort);
}

}  // namespace kzbench
