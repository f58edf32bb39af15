// kzbench: reads the command line and runs the benchmarks that it names.

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "benchmarks.h"

namespace {

constexpr char kUsage[] =
    "kzbench BENCHMARK... [--server DLL] [--url URL] [--short]\n"
    "\n"
    "  late-bound     late-bound calls on the server's objects\n"
    "  notifications  the way of a notification to the host's handlers\n"
    "  page           loading URL in one running browser\n"
    "  requests       the requests of URL through the server's callbacks, in a process of its own\n"
    "  start          from the start of a process to the end of its first load of URL\n"
    "\n"
    "Each figure stands beside its reference, measured in turns with it; the ratio is given as\n"
    "minimum, median and maximum over the repetitions.\n"
    "  --server DLL   the server; KZCEFComWrapper.dll beside this program without it\n"
    "  --hub PORT     requests only: by a hub at this port\n"
    "  --short        a few repetitions of everything, to see that it runs\n";

struct Options {
  std::vector<std::wstring> benchmarks;
  std::wstring server;
  std::wstring url;
  std::wstring event;
  std::optional<int> hub_port;
  bool brief = false;
};

std::wstring ProgramPath() {
  std::wstring path(32'768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

std::optional<Options> ReadOptions(int count, wchar_t** words) {
  const std::wstring program = ProgramPath();
  Options options;
  options.server = program.substr(0, program.find_last_of(L'\\') + 1) + L"KZCEFComWrapper.dll";
  bool server_given = false;
  for (int at = 1; at < count; ++at) {
    const std::wstring word = words[at];
    const bool has_value = at + 1 < count;
    if (word == L"--short") {
      options.brief = true;
    } else if (word == L"--server" && has_value) {
      options.server = words[++at];
      server_given = true;
    } else if (word == L"--url" && has_value) {
      options.url = words[++at];
    } else if (word == L"--hub" && has_value) {
      options.hub_port = std::stoi(words[++at]);
    } else if (word == L"--event" && has_value) {
      options.event = words[++at];
    } else if (word.starts_with(L"-")) {
      return std::nullopt;
    } else {
      options.benchmarks.push_back(word);
    }
  }
  // For a copy that loads once, no server means CEF alone.
  if (!options.benchmarks.empty() && options.benchmarks.front() == L"load-once" && !server_given)
    options.server.clear();
  return options;
}

bool Run(const std::wstring& benchmark, const Options& options) {
  const kzbench::Effort effort = kzbench::EffortOf(options.brief);
  if (benchmark == L"late-bound")
    kzbench::RunLateBound(options.server, effort);
  else if (benchmark == L"notifications")
    kzbench::RunNotifications(effort);
  else if (benchmark == L"page" && !options.url.empty())
    kzbench::RunPage(options.server, options.url, effort);
  else if (benchmark == L"requests" && !options.url.empty())
    kzbench::RunRequests(options.url, options.hub_port, effort);
  else if (benchmark == L"start" && !options.url.empty())
    kzbench::RunStart(ProgramPath(), options.server, options.url, effort);
  else
    return false;
  return true;
}

}  // namespace

int wmain(int count, wchar_t** words) try {
  const std::optional<Options> options = ReadOptions(count, words);
  if (!options || options->benchmarks.empty()) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
    return 1;
  if (options->benchmarks.front() == L"load-once")
    return kzbench::LoadOnce(options->server, options->url, options->event);
  const bool all_known = std::ranges::all_of(
      options->benchmarks, [&](const std::wstring& name) { return Run(name, *options); });
  if (!all_known)
    std::fputs(kUsage, stderr);
  return all_known ? 0 : 2;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "kzbench: %s\n", failure.what());
  return 1;
}
