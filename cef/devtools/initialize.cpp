// CEF's process-wide entry points.

#include <winsock2.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/logging.h"
#include "devtools/edition_request_context.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/log.h"
#include "include/cef_app.h"
#include "include/cef_browser.h"

namespace cefedition {
namespace {

constexpr std::chrono::seconds kThreadStopTimeout{3};

// Between a successful CefInitialize and CefShutdown.
std::atomic<bool> g_initialized{false};

// Where CEF writes its log when the settings do not say: "debug.log" beside the executable.
std::wstring LogFileOf(const CefSettings& settings) {
  if (settings.log_file.length > 0) {
    return CefString(&settings.log_file).ToWString();
  }
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return (std::filesystem::path(path).parent_path() / L"debug.log").wstring();
}

// Opens the engine's log and sends the client's own lines (LOG) there too.
void StartLog(const CefSettings& settings) {
  // One scale begins with "verbose" at -1, the other with "default" and "verbose".
  constexpr int kShift = LOGSEVERITY_VERBOSE - cef::logging::LOG_VERBOSE;
  const int lowest =
      settings.log_severity == LOGSEVERITY_DEFAULT ? LOGSEVERITY_INFO : settings.log_severity;
  OpenLog(LogFileOf(settings), settings.log_severity);
  SetLogSink(
      [](cef::logging::LogSeverity severity, const char* file, int line, std::string_view message) {
        Log(static_cast<cef_log_severity_t>(severity + kShift),
            std::filesystem::path(file).filename().string() + "(" + std::to_string(line) + ") " +
                std::string(message));
      },
      std::min(lowest - kShift, cef::logging::LOG_FATAL));
}

void StopLog() {
  SetLogSink(nullptr, cef::logging::LOG_INFO);
  CloseLog();
}

void StopThreadsAndLog() {
  StopEngineThreads(kThreadStopTimeout);
  StopLog();
  WSACleanup();
}

BrowserSpec MakeSpec(const CefWindowInfo& window_info,
                     CefRefPtr<CefClient> client,
                     const CefString& url,
                     const CefBrowserSettings& settings,
                     CefRefPtr<CefRequestContext> request_context) {
  BrowserSpec spec;
  spec.window_info = window_info;
  spec.client = client;
  spec.url = url.ToString();
  spec.settings = settings;
  spec.request_context = request_context ? request_context : CefRequestContext::GetGlobalContext();
  return spec;
}

}  // namespace
}  // namespace cefedition

int CefExecuteProcess(const CefMainArgs&, CefRefPtr<CefApp>, void*) {
  // The browser starts its own helper processes; this program is never one of them.
  return -1;
}

bool CefInitialize(const CefMainArgs&,
                   const CefSettings& settings,
                   CefRefPtr<CefApp> application,
                   void*) {
  using namespace cefedition;
  if (g_initialized.exchange(true)) {
    return false;
  }
  StartLog(settings);
  WSADATA winsock;
  const int winsock_error = WSAStartup(MAKEWORD(2, 2), &winsock);
  if (winsock_error != 0) {
    Log(LOGSEVERITY_ERROR, "Winsock failed to start: " + std::to_string(winsock_error));
    StopLog();
    g_initialized = false;
    return false;
  }
  StartEngineThreads();
  std::string error;
  std::shared_ptr<Engine> engine = Engine::Start(settings, application, error);
  if (!engine) {
    Log(LOGSEVERITY_ERROR, "The engine failed to start: " + error);
    StopThreadsAndLog();
    g_initialized = false;
    return false;
  }
  Engine::SetCurrent(engine);
  const CefRefPtr<CefBrowserProcessHandler> handler =
      application ? application->GetBrowserProcessHandler() : nullptr;
  if (handler) {
    PostToUi([handler] { handler->OnContextInitialized(); });
  }
  return true;
}

void CefShutdown() {
  using namespace cefedition;
  const std::shared_ptr<Engine> engine = Engine::Get();
  if (!engine) {
    return;
  }
  engine->Stop();
  EditionRequestContext::ResetGlobal();
  StopThreadsAndLog();
  Engine::SetCurrent(nullptr);
  g_initialized = false;
}

// The edition always runs a message loop of its own, as with `multi_threaded_message_loop`; there
// is no work that a host could do for it.
void CefDoMessageLoopWork() {}

void CefRunMessageLoop() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void CefQuitMessageLoop() {
  PostQuitMessage(0);
}

bool CefBrowserHost::CreateBrowser(const CefWindowInfo& windowInfo,
                                   CefRefPtr<CefClient> client,
                                   const CefString& url,
                                   const CefBrowserSettings& settings,
                                   CefRefPtr<CefDictionaryValue>,
                                   CefRefPtr<CefRequestContext> request_context) {
  using namespace cefedition;
  const std::shared_ptr<Engine> engine = Engine::Get();
  if (!engine || !engine->IsAlive()) {
    return false;
  }
  return PostToUi([engine, spec = MakeSpec(windowInfo, client, url, settings, request_context)] {
    engine->CreateBrowser(spec);
  });
}

CefRefPtr<CefBrowser> CefBrowserHost::CreateBrowserSync(
    const CefWindowInfo& windowInfo,
    CefRefPtr<CefClient> client,
    const CefString& url,
    const CefBrowserSettings& settings,
    CefRefPtr<CefDictionaryValue>,
    CefRefPtr<CefRequestContext> request_context) {
  using namespace cefedition;
  const std::shared_ptr<Engine> engine = Engine::Get();
  if (!engine || !OnUiThread()) {
    return nullptr;
  }
  return engine->CreateBrowser(MakeSpec(windowInfo, client, url, settings, request_context));
}
