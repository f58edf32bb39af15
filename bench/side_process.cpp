// The process of one side: does what its parent asks, one task after the other.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>

#include "cookie_store.h"
#include "measure.h"
#include "side.h"

namespace kzbench {
namespace {

constexpr DWORD kIdleMilliseconds = 60 * 60'000;
// What a closed page leaves is freed in the engine's own time, of which nobody tells.
constexpr int kMemorySamples = 20;
constexpr DWORD kSampleMilliseconds = 250;

// The system's own figure, PrivateUsage, is 0 under Wine 8.
double PrivateBytes() {
  double bytes = 0;
  MEMORY_BASIC_INFORMATION region{};
  for (const char* at = nullptr; VirtualQuery(at, &region, sizeof(region)) == sizeof(region);
       at = static_cast<const char*>(region.BaseAddress) + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
      bytes += static_cast<double>(region.RegionSize);
  }
  return bytes;
}

double SettledPrivateBytes() {
  double least = PrivateBytes();
  for (int at = 0; at < kMemorySamples; ++at) {
    Pump(kSampleMilliseconds);
    least = std::min(least, PrivateBytes());
  }
  return least;
}

// Leaves a blank page, so that the next load is of a page that is not there yet.
double TimeLoad(Loader& loader, const std::wstring& url) {
  const double taken = TimePerCall(1, [&](int) { loader.Load(url); });
  loader.Load(L"about:blank");
  return taken;
}

std::wstring SmallPage(const std::wstring& url, int number) {
  return url + L"small?" + std::to_wstring(number);
}

double TimeCookies(int expected, const std::function<int()>& read) {
  int count = 0;
  const double taken = TimePerCall(1, [&](int) { count = read(); });
  if (count != expected)
    throw std::runtime_error("cookies are missing");
  return taken;
}

double Do(Loader& loader, const std::wstring& url, Task task, int count) {
  switch (task) {
    case Task::kLoad:
      return TimeLoad(loader, url);
    case Task::kNavigate:
      for (int at = 0; at < count; ++at)
        loader.Load(SmallPage(url, at));
      return 0;
    case Task::kOpenAndClose:
      for (int at = 0; at < count; ++at)
        loader.OpenAndClose(SmallPage(url, at));
      return 0;
    case Task::kMemory:
      return SettledPrivateBytes();
    case Task::kAddHubHeader:
      loader.AddHubHeader();
      return 0;
    case Task::kFillCookieStore:
      FillCookieStore(count);
      return 0;
    case Task::kReadCookies:
      return TimeCookies(count, [&] { return loader.ReadCookies(); });
    case Task::kVisitCookies:
      return TimeCookies(count, &VisitCookieStore);
    case Task::kEnd:
      break;
  }
  return 0;
}

}  // namespace

int ServeSide(const LoaderOptions& options, const std::wstring& channel_name) {
  const Channel channel(channel_name);
  Exchange& exchange = channel.exchange();
  const UniqueHandle parent(OpenProcess(SYNCHRONIZE, FALSE, exchange.asking_process));
  const auto loader = options.server.empty() ? MakeBareLoader(options) : MakeServerLoader(options);
  SetEvent(channel.answered());
  for (;;) {
    AwaitEvent(channel.asked(), "a question",
               {.milliseconds = kIdleMilliseconds, .process = parent.get()});
    if (exchange.task == Task::kEnd)
      return 0;
    try {
      exchange.result = Do(*loader, options.url, exchange.task, exchange.count);
    } catch (const std::exception& failure) {
      std::snprintf(exchange.failure, sizeof(exchange.failure), "%s", failure.what());
    }
    SetEvent(channel.answered());
  }
}

}  // namespace kzbench
