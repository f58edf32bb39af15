// CEF's entry points for tests: each records its call and returns what the test has set.

#include "recording_cef/recording_cef.h"

#include <utility>

namespace recording_cef {
namespace {

bool Post(CefThreadId thread, CefRefPtr<CefTask> task, int64_t delay_ms) {
  RecordingCef& cef = RecordingCef::Get();
  if (!cef.post_task_result || !task) {
    return false;
  }
  if (cef.run_tasks_at_once) {
    task->Execute();
  } else {
    cef.tasks.push_back({thread, std::move(task), delay_ms});
  }
  return true;
}

class TaskRunner final : public CefTaskRunner {
 public:
  explicit TaskRunner(CefThreadId thread) : thread_(thread) {}

  bool IsSame(CefRefPtr<CefTaskRunner> that) override {
    return that && that->BelongsToThread(thread_);
  }
  bool BelongsToCurrentThread() override { return CefCurrentlyOn(thread_); }
  bool BelongsToThread(CefThreadId threadId) override { return threadId == thread_; }
  bool PostTask(CefRefPtr<CefTask> task) override { return Post(thread_, std::move(task), 0); }
  bool PostDelayedTask(CefRefPtr<CefTask> task, int64_t delay_ms) override {
    return Post(thread_, std::move(task), delay_ms);
  }

 private:
  const CefThreadId thread_;

  IMPLEMENT_REFCOUNTING(TaskRunner);
};

const Creation& Record(const CefWindowInfo& window_info,
                       CefRefPtr<CefClient> client,
                       const CefString& url,
                       const CefBrowserSettings& settings,
                       CefRefPtr<CefDictionaryValue> extra_info,
                       CefRefPtr<CefRequestContext> request_context) {
  Creation& creation = RecordingCef::Get().creations.emplace_back();
  creation.window_info = window_info;
  creation.client = std::move(client);
  creation.url = url;
  creation.settings = settings;
  creation.extra_info = std::move(extra_info);
  creation.request_context = std::move(request_context);
  return creation;
}

}  // namespace

// Never destroyed, because product objects of static lifetime may still call in at the end.
RecordingCef& RecordingCef::Get() {
  static auto* const instance = new RecordingCef;
  return *instance;
}

void RecordingCef::Reset() {
  // What goes may call back into this object; by then it must be whole again.
  RecordingCef old;
  std::swap(*this, old);
}

int RecordingCef::RunTasks() {
  int count = 0;
  for (; !tasks.empty(); ++count) {
    const CefRefPtr<CefTask> task = tasks.front().task;
    tasks.erase(tasks.begin());
    task->Execute();
  }
  return count;
}

}  // namespace recording_cef

using recording_cef::RecordingCef;

int CefExecuteProcess(const CefMainArgs&, CefRefPtr<CefApp> application, void*) {
  RecordingCef& cef = RecordingCef::Get();
  ++cef.execute_process_count;
  cef.execute_process_app = application;
  return cef.execute_process_result;
}

bool CefInitialize(const CefMainArgs& args,
                   const CefSettings& settings,
                   CefRefPtr<CefApp> application,
                   void* windows_sandbox_info) {
  RecordingCef& cef = RecordingCef::Get();
  recording_cef::Initialization call;
  call.instance = args.instance;
  call.settings = settings;
  call.app = application;
  call.sandbox_info = windows_sandbox_info;
  call.command_line = CefCommandLine::CreateCommandLine();
  call.command_line->InitFromString(cef.command_line);
  call.thread_id = GetCurrentThreadId();
  cef.initializations.push_back(call);
  if (application) {
    // An empty process type stands for the browser process.
    application->OnBeforeCommandLineProcessing(CefString(), call.command_line);
  }
  if (cef.on_initialize) {
    cef.on_initialize();
  }
  return cef.initialize_result;
}

void CefShutdown() {
  RecordingCef& cef = RecordingCef::Get();
  ++cef.shutdown_count;
  if (cef.on_shutdown) {
    cef.on_shutdown();
  }
}

bool CefBrowserHost::CreateBrowser(const CefWindowInfo& windowInfo,
                                   CefRefPtr<CefClient> client,
                                   const CefString& url,
                                   const CefBrowserSettings& settings,
                                   CefRefPtr<CefDictionaryValue> extra_info,
                                   CefRefPtr<CefRequestContext> request_context) {
  const recording_cef::Creation creation =
      recording_cef::Record(windowInfo, client, url, settings, extra_info, request_context);
  RecordingCef& cef = RecordingCef::Get();
  if (cef.on_create_browser) {
    cef.on_create_browser(creation);
  }
  return cef.create_browser_result;
}

CefRefPtr<CefBrowser> CefBrowserHost::CreateBrowserSync(
    const CefWindowInfo& windowInfo,
    CefRefPtr<CefClient> client,
    const CefString& url,
    const CefBrowserSettings& settings,
    CefRefPtr<CefDictionaryValue> extra_info,
    CefRefPtr<CefRequestContext> request_context) {
  recording_cef::Record(windowInfo, client, url, settings, extra_info, request_context);
  return RecordingCef::Get().create_browser_sync_result;
}

CefRefPtr<CefCookieManager> CefCookieManager::GetGlobalManager(
    CefRefPtr<CefCompletionCallback> callback) {
  RecordingCef& cef = RecordingCef::Get();
  cef.cookie_manager_callbacks.push_back(callback);
  return cef.cookie_manager;
}

CefRefPtr<CefRequestContext> CefRequestContext::GetGlobalContext() {
  RecordingCef& cef = RecordingCef::Get();
  ++cef.get_global_context_count;
  return cef.request_context;
}

bool CefCurrentlyOn(CefThreadId threadId) {
  const RecordingCef& cef = RecordingCef::Get();
  return !cef.currently_on || cef.currently_on(threadId);
}

bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task) {
  return recording_cef::Post(threadId, task, 0);
}

bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64_t delay_ms) {
  return recording_cef::Post(threadId, task, delay_ms);
}

CefRefPtr<CefTaskRunner> CefTaskRunner::GetForCurrentThread() {
  for (const CefThreadId thread : {TID_UI, TID_IO, TID_FILE_BACKGROUND, TID_FILE_USER_VISIBLE,
                                   TID_FILE_USER_BLOCKING, TID_PROCESS_LAUNCHER}) {
    if (CefCurrentlyOn(thread)) {
      return GetForThread(thread);
    }
  }
  return nullptr;
}

CefRefPtr<CefTaskRunner> CefTaskRunner::GetForThread(CefThreadId threadId) {
  return new recording_cef::TaskRunner(threadId);
}
