// A double of the functions that reach for the running engine, for tests: what product code asks
// for is written down, and the test says what it gets. Linked in place of cef::cef; values,
// requests and all else that needs no running engine are the real engine's, through cef::base.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "include/cef_app.h"
#include "include/cef_browser.h"
#include "include/cef_client.h"
#include "include/cef_cookie.h"
#include "include/cef_request_context.h"
#include "include/cef_task.h"

namespace recording_cef {

// One call of CefInitialize.
struct Initialization {
  HINSTANCE instance = nullptr;
  // A deep copy.
  CefSettings settings;
  CefRefPtr<CefApp> app;
  void* sandbox_info = nullptr;
  // As the application left it in OnBeforeCommandLineProcessing.
  CefRefPtr<CefCommandLine> command_line;
  DWORD thread_id = 0;
};

// One call of CefBrowserHost::CreateBrowser or CreateBrowserSync.
struct Creation {
  CefWindowInfo window_info;
  CefRefPtr<CefClient> client;
  CefString url;
  CefBrowserSettings settings;
  CefRefPtr<CefDictionaryValue> extra_info;
  CefRefPtr<CefRequestContext> request_context;
};

// One task that was posted.
struct PostedTask {
  CefThreadId thread = TID_UI;
  CefRefPtr<CefTask> task;
  int64_t delay_ms = 0;
};

// The state behind the entry points, one for the process. Members are plain data: a test that lets
// several threads call the entry points looks at them when those are done.
class RecordingCef {
 public:
  static RecordingCef& Get();

  // Forgets all records and everything that was set.
  void Reset();

  // --- Start and stop ---

  std::vector<Initialization> initializations;
  bool initialize_result = true;
  // The command line that the application sees at first, as one text.
  CefString command_line;
  // Called inside CefInitialize, after the application's callback; may throw.
  std::function<void()> on_initialize;

  int shutdown_count = 0;
  // Called inside CefShutdown; may throw.
  std::function<void()> on_shutdown;

  int execute_process_count = 0;
  CefRefPtr<CefApp> execute_process_app;
  int execute_process_result = -1;

  // --- Browsers ---

  std::vector<Creation> creations;
  // What CreateBrowser returns.
  bool create_browser_result = true;
  // What CreateBrowserSync returns.
  CefRefPtr<CefBrowser> create_browser_sync_result;
  // Called inside CreateBrowser, for instance to raise OnAfterCreated; may throw.
  std::function<void(const Creation&)> on_create_browser;

  // --- Tasks and threads ---

  // Tasks that have not run yet, in the order of posting.
  std::vector<PostedTask> tasks;
  bool post_task_result = true;
  // Runs each task inside the call that posts it, whatever its delay, and records none.
  bool run_tasks_at_once = false;
  // Runs the recorded tasks and those that they post, in order. Returns how many ran.
  int RunTasks();

  // What CefCurrentlyOn returns; every thread is every thread unless the test says otherwise.
  std::function<bool(CefThreadId)> currently_on;

  // --- Cookies and contexts ---

  // What GetGlobalManager and GetGlobalContext return; null at first.
  CefRefPtr<CefCookieManager> cookie_manager;
  CefRefPtr<CefRequestContext> request_context;
  // The callbacks given to GetGlobalManager, null ones included.
  std::vector<CefRefPtr<CefCompletionCallback>> cookie_manager_callbacks;
  int get_global_context_count = 0;

 private:
  RecordingCef() = default;
};

}  // namespace recording_cef
