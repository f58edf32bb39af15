// kzbench: reads the command line and runs the benchmarks that it names.

#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "benchmarks.h"
#include "program.h"
#include "side.h"

namespace {

constexpr char kUsage[] =
    "kzbench BENCHMARK [--server DLL] [--url URL] [--hub PORT] [--short]\n"
    "\n"
    "  cookies        cookies as texts, and reading a store of 10,000\n"
    "  late-bound     late-bound calls on the server's objects\n"
    "  memory         the host's memory after many pages and browsers\n"
    "  notifications  the way of a notification to the host's handlers\n"
    "  page           loading URL in one running browser\n"
    "  start          from the start of a process to the end of its first load\n"
    "\n"
    "Each figure stands beside its reference, measured in turns with it; the ratio is given as\n"
    "minimum, median and maximum over the repetitions.\n"
    "  --server DLL   the server; KZCEFComWrapper.dll beside this program without it\n"
    "  --url URL      a site's page; URL + \"small\" is a small one. For memory, page, start\n"
    "  --hub PORT     page only: by a hub at this port\n"
    "  --short        a few repetitions of everything, to see that it runs\n";

struct Options {
  std::wstring benchmark;
  kzbench::LoaderOptions loader;
  std::wstring channel;
  bool brief = false;
};

std::optional<Options> ReadOptions(int count, wchar_t** words) {
  if (count < 2)
    return std::nullopt;
  Options options;
  options.benchmark = words[1];
  const std::map<std::wstring, std::function<void(const std::wstring&)>> values = {
      {L"--server", [&](const std::wstring& value) { options.loader.server = value; }},
      {L"--url", [&](const std::wstring& value) { options.loader.url = value; }},
      {L"--first-url", [&](const std::wstring& value) { options.loader.first_url = value; }},
      {L"--cache", [&](const std::wstring& value) { options.loader.cache = value; }},
      {L"--hub", [&](const std::wstring& value) { options.loader.hub_port = std::stoi(value); }},
      {L"--channel", [&](const std::wstring& value) { options.channel = value; }},
  };
  for (int at = 2; at < count; ++at) {
    const auto found = values.find(words[at]);
    if (found != values.end() && at + 1 < count)
      found->second(words[++at]);
    else if (std::wstring(words[at]) == L"--short")
      options.brief = true;
    else
      return std::nullopt;
  }
  // For a side, no server means CEF alone.
  if (options.loader.server.empty() && options.benchmark != L"side")
    options.loader.server = kzbench::BesideThisProgram(L"KZCEFComWrapper.dll");
  return options;
}

bool Run(const Options& options) {
  const kzbench::Effort effort = kzbench::EffortOf(options.brief);
  const bool has_site = !options.loader.url.empty();
  if (options.benchmark == L"cookies")
    kzbench::RunCookies(options.loader, effort);
  else if (options.benchmark == L"late-bound")
    kzbench::RunLateBound(options.loader.server, effort);
  else if (options.benchmark == L"notifications")
    kzbench::RunNotifications(effort);
  else if (options.benchmark == L"memory" && has_site)
    kzbench::RunMemory(options.loader, effort);
  else if (options.benchmark == L"page" && has_site)
    kzbench::RunPage(options.loader, effort);
  else if (options.benchmark == L"start" && has_site)
    kzbench::RunStart(options.loader, effort);
  else
    return false;
  return true;
}

}  // namespace

int wmain(int count, wchar_t** words) try {
  const std::optional<Options> options = ReadOptions(count, words);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
    return 1;
  // A copy that a benchmark has started.
  if (options && options->benchmark == L"side")
    return kzbench::ServeSide(options->loader, options->channel);
  if (options && Run(*options))
    return 0;
  std::fputs(kUsage, stderr);
  return 2;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "kzbench: %s\n", failure.what());
  return 1;
}
