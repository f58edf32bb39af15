#include "side.h"

#include <windows.h>

#include <stdexcept>

#include "program.h"

namespace kzbench {
namespace {

constexpr DWORD kTaskMilliseconds = 20 * 60'000;

std::wstring NewName() {
  static int counter = 0;
  return L"kzbench-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
}

std::wstring Quote(const std::wstring& word) {
  return L"\"" + word + L"\"";
}

std::wstring CommandLine(const LoaderOptions& options,
                         const std::wstring& cache,
                         const std::wstring& channel) {
  std::wstring command = Quote(ProgramPath()) + L" side --channel " + channel + L" --url " +
                         Quote(options.url) + L" --first-url " + Quote(options.first_url) +
                         L" --cache " + Quote(cache);
  if (!options.server.empty())
    command += L" --server " + Quote(options.server);
  if (options.hub_port)
    command += L" --hub " + std::to_wstring(*options.hub_port);
  return command;
}

UniqueHandle Start(std::wstring command) {
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process))
    throw std::runtime_error("cannot start a copy of this program");
  CloseHandle(process.hThread);
  return UniqueHandle(process.hProcess);
}

}  // namespace

Side::Side(const LoaderOptions& options) : Side(options, NewName()) {}

Side::Side(const LoaderOptions& options, const std::wstring& name) : channel_(name) {
  channel_.exchange().asking_process = GetCurrentProcessId();
  process_ = Start(CommandLine(options, cache_.path(), name));
  AwaitEvent(channel_.answered(), "its first page", {.process = process_.get()});
}

Side::~Side() {
  channel_.exchange().task = Task::kEnd;
  SetEvent(channel_.asked());
  try {
    AwaitEvent(process_.get(), "a side's end");
  } catch (const std::runtime_error&) {
    TerminateProcess(process_.get(), 1);
  }
}

double Side::Ask(Task task, int count) {
  Exchange& exchange = channel_.exchange();
  exchange.task = task;
  exchange.count = count;
  SetEvent(channel_.asked());
  AwaitEvent(channel_.answered(), "its answer",
             {.milliseconds = kTaskMilliseconds, .process = process_.get()});
  if (exchange.failure[0] != '\0')
    throw std::runtime_error(exchange.failure);
  return exchange.result;
}

}  // namespace kzbench
