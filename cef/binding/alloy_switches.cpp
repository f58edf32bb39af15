// The switches that give Chrome's bootstrap the behaviour of CEF 123's own.

#include "alloy_switches.h"

#include <algorithm>
#include <vector>

namespace cefbinding {
namespace {

constexpr const char* kSwitches[] = {
    // window.open without a gesture, and 401 and 407, are the client's to decide
    // (chrome_content_browser_client_cef.cc: CanCreateWindow, CreateLoginDelegate).
    "disable-popup-blocking",
    "disable-chrome-login-prompt",
    // Chrome's error page loads again by itself.
    "disable-auto-reload",
    // Services of Chrome's, each with servers of its own.
    "disable-background-networking",
    "disable-breakpad",
    "disable-component-extensions-with-background-pages",
    "disable-component-update",
    "disable-default-apps",
    "disable-domain-reliability",
    "disable-sync",
    "no-default-browser-check",
    "no-first-run",
    // CEF 123's runtime had no profiler, which suspends threads at random moments. Wine loses a
    // thread that is suspended in the middle of a request to its server.
    "disable-stack-profiler",
};

// Chrome asks its accounts' server who is signed in, and no switch prevents that. A port that the
// network service refuses ends the question before anything is looked up or connected.
constexpr const char* kAccountsSwitch = "gaia-url";
constexpr const char* kNoAccounts = "https://127.0.0.1:1";

constexpr std::string_view kDisabledFeatures =
    // CEF 123's own list (alloy_main_delegate.cc: BasicStartupComplete).
    "CalculateNativeWinOcclusion,BackForwardCache,DocumentPictureInPictureAPI,"
    // http:// stays http://.
    "HttpsUpgrades,"
    // Services of Chrome's again. Media routing is left as it is: CEF 123 had it.
    "AutofillServerCommunication,NetworkTimeServiceQuerying,OptimizationGuideModelDownloading,"
    "OptimizationHints,OptimizationHintsFetching,OptimizationTargetPrediction,Translate";

constexpr std::array<const char*, 2> kFeatureSwitches = {"disable-features", "enable-features"};

void AppendNames(std::string_view list, std::vector<std::string_view>& names) {
  while (!list.empty()) {
    const size_t end = std::min(list.find(','), list.size());
    const std::string_view name = list.substr(0, end);
    if (!name.empty() && std::ranges::find(names, name) == names.end()) {
      names.push_back(name);
    }
    list.remove_prefix(std::min(end + 1, list.size()));
  }
}

}  // namespace

std::string UnionOfFeatures(std::string_view first, std::string_view second) {
  std::vector<std::string_view> names;
  AppendNames(first, names);
  AppendNames(second, names);
  std::string list;
  for (const std::string_view name : names) {
    if (!list.empty()) {
      list += ',';
    }
    list += name;
  }
  return list;
}

void AppendAlloySwitches(CefCommandLine& command_line, bool logs) {
  for (const char* const name : kSwitches) {
    command_line.AppendSwitch(name);
  }
  command_line.AppendSwitchWithValue(kAccountsSwitch, kNoAccounts);
  if (!logs) {
    // The severity alone leaves a file behind with what is fatal.
    command_line.AppendSwitch("disable-logging");
  }
  const std::string present = command_line.GetSwitchValue(kFeatureSwitches[0]);
  command_line.AppendSwitchWithValue(kFeatureSwitches[0],
                                     UnionOfFeatures(present, kDisabledFeatures));
}

FeatureSwitches::FeatureSwitches(CefCommandLine& command_line) {
  for (size_t i = 0; i < lists_.size(); ++i) {
    lists_[i] = command_line.GetSwitchValue(kFeatureSwitches[i]).ToString();
  }
}

void FeatureSwitches::PutTogetherWith(CefCommandLine& command_line) const {
  for (size_t i = 0; i < lists_.size(); ++i) {
    const std::string now = command_line.GetSwitchValue(kFeatureSwitches[i]).ToString();
    if (now != lists_[i]) {
      command_line.AppendSwitchWithValue(kFeatureSwitches[i], UnionOfFeatures(lists_[i], now));
    }
  }
}

}  // namespace cefbinding
