// The benchmarks of whole pages and processes, each with the server and with CEF alone.

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "benchmarks.h"
#include "side.h"

namespace kzbench {
namespace {

// All of these take long: fewer of them do.
constexpr int kPageRepetitions = 21;
constexpr int kStartRepetitions = 15;
constexpr int kMemoryRepetitions = 3;
constexpr int kNavigations = 500;
constexpr int kBrowsers = 50;

LoaderOptions WithoutServer(LoaderOptions options) {
  options.server.clear();
  return options;
}

Measured TimeOfLoad(Side& side) {
  return [&side] { return side.Ask(Task::kLoad); };
}

// From the start of a process to the end of its first page.
Measured TimeOfStart(const LoaderOptions& options) {
  return [options] {
    std::optional<Side> side;
    return TimePerCall(1, [&](int) { side.emplace(options); });
  };
}

// What a process's memory is, in bytes, after each of these in turn.
struct Footprint {
  double at_start;
  double after_navigations;
  double after_browsers;
};

Footprint TakeFootprint(const LoaderOptions& options, const Effort& effort) {
  const auto few = [&](int count) { return effort.is_short() ? 2 : count; };
  Side side(options);
  side.Ask(Task::kLoad);
  Footprint footprint{};
  footprint.at_start = side.Ask(Task::kMemory);
  side.Ask(Task::kNavigate, few(kNavigations));
  footprint.after_navigations = side.Ask(Task::kMemory);
  side.Ask(Task::kOpenAndClose, few(kBrowsers));
  footprint.after_browsers = side.Ask(Task::kMemory);
  return footprint;
}

}  // namespace

void RunPage(const LoaderOptions& options, const Effort& effort) {
  PrintHeading(options.hub_port ? "a page through the hub, against CEF alone"
                                : "a page, against CEF alone");
  Side served(options);
  Side bare(WithoutServer(options));
  const auto compare = [&](const char* name) {
    Compare(name, 1.05, WithRepetitions(effort, kPageRepetitions), TimeOfLoad(served),
            TimeOfLoad(bare));
  };
  if (!options.hub_port) {
    compare("page with 200 sub-resources");
    return;
  }
  compare("page through the hub, as it is");
  served.Ask(Task::kAddHubHeader);
  compare("page through the hub, with a header of it");
}

void RunStart(const LoaderOptions& options, const Effort& effort) {
  PrintHeading("process start to the first LoadEndNotify");
  LoaderOptions served = options;
  served.first_url = options.url + L"small";
  Compare("start to first page, against CEF alone", 1.05,
          WithRepetitions(effort, kStartRepetitions), TimeOfStart(served),
          TimeOfStart(WithoutServer(served)));
}

void RunMemory(const LoaderOptions& options, const Effort& effort) {
  PrintHeading("memory of the host's process, against CEF alone");
  Comparison start;
  Comparison navigations;
  Comparison navigations_growth;
  Comparison browsers;
  Comparison browsers_growth;
  const int repetitions = WithRepetitions(effort, kMemoryRepetitions).repetitions;
  for (int at = 0; at < repetitions; ++at) {
    const Footprint served = TakeFootprint(options, effort);
    const Footprint bare = TakeFootprint(WithoutServer(options), effort);
    start.Add(served.at_start, bare.at_start);
    navigations.Add(served.after_navigations, bare.after_navigations);
    navigations_growth.Add(served.after_navigations - served.at_start,
                           bare.after_navigations - bare.at_start);
    browsers.Add(served.after_browsers, bare.after_browsers);
    browsers_growth.Add(served.after_browsers - served.after_navigations,
                        bare.after_browsers - bare.after_navigations);
  }
  start.Print("memory with one page", 0, Quantity::kSize);
  navigations.Print("memory after 500 navigations", 1.05, Quantity::kSize);
  navigations_growth.Print("of it, grown by the navigations", 0, Quantity::kSize);
  browsers.Print("memory after 50 more browsers", 1.05, Quantity::kSize);
  browsers_growth.Print("of it, grown by the browsers", 0, Quantity::kSize);
}

}  // namespace kzbench
