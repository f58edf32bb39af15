// The benchmarks of whole pages and processes, each with the server and with CEF alone.

#include <windows.h>

#include <stdexcept>

#include "benchmarks.h"
#include "loaders.h"
#include "waiting.h"

namespace kzbench {
namespace {

// Loads and starts take long: fewer of them do.
constexpr int kPageRepetitions = 15;
constexpr int kStartRepetitions = 7;

std::wstring Quote(const std::wstring& word) {
  return L"\"" + word + L"\"";
}

// A started copy of this program, which is waited for.
double TimeStart(const std::wstring& program, const std::wstring& server, const std::wstring& url) {
  static int counter = 0;
  const std::wstring name =
      L"kzbench-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
  const UniqueHandle loaded = MakeEvent(name.c_str());
  std::wstring command = Quote(program) + L" load-once --url " + Quote(url) + L" --event " + name;
  if (!server.empty())
    command += L" --server " + Quote(server);

  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  UniqueHandle running;
  const double taken = TimePerCall(1, [&](int) {
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process))
      throw std::runtime_error("cannot start a copy of this program");
    running.reset(process.hProcess);
    CloseHandle(process.hThread);
    AwaitEvent(loaded.get(), "the started program's page");
  });
  AwaitEvent(running.get(), "the started program's end");
  return taken;
}

Effort WithRepetitions(const Effort& effort, int repetitions) {
  return {.repetitions = effort.divisor == 1 ? repetitions : 1, .divisor = effort.divisor};
}

}  // namespace

void RunPage(const std::wstring& server, const std::wstring& url, const Effort& effort) {
  PrintHeading("a page, against CEF alone");
  const auto served = MakeServerLoader(server);
  const auto bare = MakeBareLoader();
  const auto timed = [&url](Loader& loader) {
    return [&loader, &url] { return TimeLoad(loader, url); };
  };
  Compare("page with 200 sub-resources", 1.05, WithRepetitions(effort, kPageRepetitions),
          timed(*served), timed(*bare));
}

void RunStart(const std::wstring& program,
              const std::wstring& server,
              const std::wstring& url,
              const Effort& effort) {
  PrintHeading("process start to the first LoadEndNotify");
  Compare(
      "start to first page, against CEF alone", 0, WithRepetitions(effort, kStartRepetitions),
      [&] { return TimeStart(program, server, url); }, [&] { return TimeStart(program, {}, url); });
}

int LoadOnce(const std::wstring& server, const std::wstring& url, const std::wstring& event) {
  const UniqueHandle loaded = MakeEvent(event.c_str());
  const auto loader = server.empty() ? MakeBareLoader() : MakeServerLoader(server);
  loader->Load(url);
  SetEvent(loaded.get());
  return 0;
}

}  // namespace kzbench
