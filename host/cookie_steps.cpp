// Reads and sets cookies through the server's cookie manager and compares
// what came of it with what the step expects.

#include "cookie_steps.h"

#include <algorithm>
#include <utility>

#include "com/variant_json.h"
#include "portable/notification.h"
#include "portable/text_match.h"
#include "wide_text.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

constexpr char kManager[] = "cookies";

HRESULT FindManager(Host& host, IDispatch*& manager) {
  manager = host.FindObject(kManager);
  if (manager) {
    return S_OK;
  }
  ComPtr<IDispatch> created;
  const HRESULT result = host.calls().GetCookieManager(host.application(), &created);
  if (SUCCEEDED(result)) {
    manager = created.Get();
    host.KeepObject(kManager, std::move(created));
  }
  return result;
}

HRESULT ReadCookies(Host& host, IDispatch* manager, const Step& step, Variant& cookies) {
  switch (step.verb) {
    case Verb::kGetCookies:
      return host.calls().GetUrlCookies(manager, ToWide(step.Text("url")), cookies.Receive());
    case Verb::kGetCookiesSync:
      return host.calls().GetUrlCookiesSync(manager, ToWide(step.Text("url")), cookies.Receive());
    default:
      return host.calls().GetAllCookiesSync(manager, cookies.Receive());
  }
}

// Whether each pattern of "has" fits a cookie text.
bool HasEach(const Json& texts, const Json& patterns) {
  return std::ranges::all_of(patterns, [&](const Json& pattern) {
    return texts.is_array() && std::ranges::any_of(texts, [&](const Json& text) {
             return MatchesText(text.get_ref<const std::string&>(),
                                pattern.get_ref<const std::string&>());
           });
  });
}

CookieOutcome Read(Host& host, IDispatch* manager, const Step& step) {
  HRESULT result = S_OK;
  Json value;
  const auto read = [&] {
    Variant cookies;
    result = ReadCookies(host, manager, step, cookies);
    value = VariantToJson(cookies);
    return FAILED(result) || ((!step.Has("equals") || value == step.members.at("equals")) &&
                              HasEach(value, step.members.value("has", Json::array())));
  };
  const bool reached = step.Has("timeout") ? host.WaitUntil(read, step.Timeout()) : read();
  std::optional<std::string> complaint;
  if (!reached) {
    complaint = "the cookies are " + Dump(value);
  }
  return {result, std::move(value), std::move(complaint)};
}

CookieOutcome Set(Host& host, IDispatch* manager, const Step& step) {
  bool done = false;
  const HRESULT result = host.calls().SetUrlCookies(
      manager, ToWide(step.Text("url")), JsonToVariant(step.members.at("cookies")), done);
  std::optional<std::string> complaint;
  if (done != step.Flag("equals", true)) {
    complaint = "the result is " + Dump(done);
  }
  return {result, done, std::move(complaint)};
}

}  // namespace

CookieOutcome RunCookieStep(Host& host, const Step& step) {
  IDispatch* manager = nullptr;
  const HRESULT found = FindManager(host, manager);
  if (FAILED(found)) {
    return {found, nullptr, std::nullopt};
  }
  return step.verb == Verb::kSetCookies ? Set(host, manager, step) : Read(host, manager, step);
}

}  // namespace kzhost
