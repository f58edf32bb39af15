// kzhost: opens browsers through the server's automation objects, as an add-in would.
#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host.h"
#include "portable/notification_log.h"
#include "portable/options.h"
#include "portable/steps_reader.h"
#include "steps_runner.h"
#include "ui/screenshot.h"
#include "wide_text.h"

namespace kzhost {
namespace {

constexpr int kSucceeded = 0;
constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;
constexpr char kFirstBrowser[] = "b1";
constexpr std::chrono::seconds kPaintTimeout{5};
constexpr std::chrono::milliseconds kPaintPause{1000};

int Complain(const std::string& message, int status = kFailed) {
  std::fprintf(stderr, "kzhost: %s\n", message.c_str());
  return status;
}

class ComApartment {
 public:
  ComApartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ComApartment() { CoUninitialize(); }
};

bool HasInit(const std::vector<Step>& steps) {
  return std::ranges::any_of(steps, [](const Step& step) { return step.verb == Verb::kInit; });
}

// Reads and checks the steps; complains about a wrong one.
bool ReadStepsFile(const std::string& path, std::vector<Step>& steps) {
  std::ifstream file(std::filesystem::path(ToWide(path)), std::ios::binary);
  if (!file) {
    Complain("cannot read " + path);
    return false;
  }
  std::ostringstream text;
  text << file.rdbuf();
  auto read = ReadSteps(text.str());
  if (const auto* error = std::get_if<StepsError>(&read)) {
    std::fprintf(stderr, "%s\n", ToText(path, *error).c_str());
    return false;
  }
  steps = std::get<std::vector<Step>>(std::move(read));
  return true;
}

std::string WhereTheReasonIs(const Options& options) {
  return options.cache_directory.empty() ? "debug.log in the cache directory"
                                         : "debug.log in " + options.cache_directory;
}

// Opens the first browser on the URL of the command line.
bool StartFirstBrowser(Host& host, const Options& options) {
  HRESULT result = host.StartEngine();
  if (FAILED(result)) {
    Complain("the server refused to start its engine: " + DescribeResult(result));
    return false;
  }
  BrowserSession* session = nullptr;
  result = host.OpenBrowser(kFirstBrowser,
                            ToWide(options.url.empty() ? "about:blank" : options.url), session);
  if (FAILED(result)) {
    Complain("the first browser could not be opened: " + DescribeResult(result));
    return false;
  }
  if (result == S_FALSE) {
    Complain("the server's engine did not start; the reason stands in " +
             WhereTheReasonIs(options));
    return false;
  }
  return SUCCEEDED(session->Start());
}

// Tells when a view's painting has come to rest: it shows something, and has shown the same for a
// while. Nobody tells a host that a page's last part is painted.
class PaintWatch {
 public:
  bool IsAtRest(Picture shown) {
    const auto now = std::chrono::steady_clock::now();
    if (shown.bgra != last_.bgra) {
      last_ = std::move(shown);
      changed_ = now;
    }
    return !last_.IsUniform() && now - changed_ >= kPaintPause;
  }

 private:
  Picture last_;
  std::chrono::steady_clock::time_point changed_ = std::chrono::steady_clock::now();
};

// Waits until the page is loaded and painted.
bool WaitForPage(Host& host, std::chrono::milliseconds timeout) {
  const bool loaded = host.WaitUntil(
      [&host] {
        return !host.FindBrowser(kFirstBrowser) ||
               host.log().Find(0, kFirstBrowser, "LoadingStateChangeNotify",
                               {{"IsLoading", false}});
      },
      timeout);
  // A page may be of one colour or never rest: after a while it is taken as it is.
  PaintWatch watch;
  host.WaitUntil(
      [&] {
        const BrowserSession* session = host.FindBrowser(kFirstBrowser);
        return !loaded || !session || watch.IsAtRest(TakePicture(session->window()->view()));
      },
      kPaintTimeout);
  return loaded && host.FindBrowser(kFirstBrowser);
}

bool SaveScreenshot(Host& host, const Options& options) {
  const BrowserSession* session = host.FindBrowser(kFirstBrowser);
  if (!session) {
    Complain("there is no window to take a picture of");
    return false;
  }
  session->window()->BringForward();
  const HRESULT result =
      SavePng(TakePicture(session->window()->hwnd()), ToWide(options.screenshot_file));
  if (FAILED(result)) {
    Complain("cannot save " + options.screenshot_file + ": " + DescribeResult(result));
  }
  return SUCCEEDED(result);
}

int RunSteps(Host& host, const Options& options, const std::vector<Step>& steps) {
  // A file that starts the engine itself also opens its browsers. Without an engine the steps run
  // all the same: what happens then may be what they are about.
  if (!HasInit(steps)) {
    StartFirstBrowser(host, options);
  }
  if (const auto failure = StepsRunner(host).Run(steps)) {
    std::fprintf(stderr, "%s\n", ToText(options.steps_file, *failure).c_str());
    return kFailed;
  }
  const bool saved = options.screenshot_file.empty() || SaveScreenshot(host, options);
  return saved ? kSucceeded : kFailed;
}

int RunWindow(Host& host, const Options& options) {
  if (!StartFirstBrowser(host, options)) {
    return kFailed;
  }
  int status = kSucceeded;
  if (options.quit || !options.screenshot_file.empty()) {
    if (!WaitForPage(host, options.timeout)) {
      // Bound late, a host does not see that a member returned S_FALSE: the engine's failure shows
      // in the browser that never comes.
      const bool created =
          host.log().Find(0, kFirstBrowser, "BrowserCreatedNotify", Json::object()).has_value();
      status = Complain(
          created ? "the page was not loaded in time"
                  : "the browser was not created in time; if the engine did not start, the "
                    "reason stands in " +
                        WhereTheReasonIs(options));
    } else if (!options.screenshot_file.empty() && !SaveScreenshot(host, options)) {
      status = kFailed;
    }
  }
  if (!options.quit) {
    host.RunUntilClosed();
  }
  return status;
}

int Run(const std::vector<std::string>& arguments) {
  const auto parsed = ParseOptions(arguments);
  if (const auto* wrong = std::get_if<std::string>(&parsed)) {
    return Complain(*wrong + "; --help tells more", kWrongCommandLine);
  }
  const auto& options = std::get<Options>(parsed);
  if (options.help) {
    std::fputs(HelpText().c_str(), stdout);
    return kSucceeded;
  }
  std::vector<Step> steps;
  if (!options.steps_file.empty() && !ReadStepsFile(options.steps_file, steps)) {
    return kFailed;
  }
  NotificationLog::File events(nullptr, &std::fclose);
  if (!options.events_file.empty()) {
    events.reset(_wfopen(ToWide(options.events_file).c_str(), L"wb"));
    if (!events) {
      return Complain("cannot write " + options.events_file);
    }
  }

  const ComApartment apartment;
  const auto log =
      std::make_shared<NotificationLog>(std::move(events), options.console ? stdout : nullptr);
  Host host(options, log);
  const HRESULT result = host.Activate();
  if (FAILED(result)) {
    return Complain("the server cannot be reached: " + DescribeResult(result) +
                    (options.server_path.empty() ? "; is it registered?" : ""));
  }
  const int status =
      options.steps_file.empty() ? RunWindow(host, options) : RunSteps(host, options, steps);
  host.ShutDown();
  return status;
}

}  // namespace
}  // namespace kzhost

int wmain(int count, wchar_t** arguments) {
  SetConsoleOutputCP(CP_UTF8);
  try {
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) {
      texts.push_back(kzhost::ToUtf8(arguments[i]));
    }
    return kzhost::Run(texts);
  } catch (const std::exception& error) {
    return kzhost::Complain(error.what());
  }
}
