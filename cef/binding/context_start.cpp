// Takes note of the engine's context.

#include "context_start.h"

#include <future>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "include/base/cef_bind.h"
#include "include/wrapper/cef_closure_task.h"

namespace cefbinding {
namespace {

// The tasks that wait for the context.
class Waiting {
 public:
  void Post(base::OnceClosure task) {
    const std::lock_guard lock(mutex_);
    if (has_context_) {
      CefPostTask(TID_UI, std::move(task));
    } else {
      tasks_.push_back(std::move(task));
    }
  }
  void PostAll() {
    const std::lock_guard lock(mutex_);
    has_context_ = true;
    for (base::OnceClosure& task : tasks_) {
      CefPostTask(TID_UI, std::move(task));
    }
    tasks_.clear();
  }

 private:
  std::mutex mutex_;
  bool has_context_ = false;
  std::vector<base::OnceClosure> tasks_;
};

// Never destroyed: the engine's threads may outlive static objects.
Waiting& TheWaiting() {
  static auto& waiting = *new Waiting;
  return waiting;
}

class NotingBrowserProcess final : public CefBrowserProcessHandler {
 public:
  explicit NotingBrowserProcess(CefRefPtr<CefBrowserProcessHandler> host)
      : host_(std::move(host)) {}

  void OnContextInitialized() override {
    if (host_) {
      host_->OnContextInitialized();
    }
    TheWaiting().PostAll();
  }
  void OnBeforeChildProcessLaunch(CefRefPtr<CefCommandLine> command_line) override {
    if (host_) {
      host_->OnBeforeChildProcessLaunch(command_line);
    }
  }
  bool OnAlreadyRunningAppRelaunch(CefRefPtr<CefCommandLine> command_line,
                                   const CefString& current_directory) override {
    return host_ && host_->OnAlreadyRunningAppRelaunch(command_line, current_directory);
  }

 private:
  const CefRefPtr<CefBrowserProcessHandler> host_;

  IMPLEMENT_REFCOUNTING(NotingBrowserProcess);
};

class NotingApp final : public CefApp {
 public:
  explicit NotingApp(CefRefPtr<CefApp> application) : application_(std::move(application)) {}

  void OnBeforeCommandLineProcessing(const CefString& process_type,
                                     CefRefPtr<CefCommandLine> command_line) override {
    if (application_) {
      application_->OnBeforeCommandLineProcessing(process_type, command_line);
    }
  }
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override {
    return new NotingBrowserProcess(application_ ? application_->GetBrowserProcessHandler()
                                                 : nullptr);
  }
  CefRefPtr<CefRenderProcessHandler> GetRenderProcessHandler() override {
    return application_ ? application_->GetRenderProcessHandler() : nullptr;
  }

 private:
  const CefRefPtr<CefApp> application_;

  IMPLEMENT_REFCOUNTING(NotingApp);
};

}  // namespace

CefRefPtr<CefApp> WithContextNoted(CefRefPtr<CefApp> application) {
  return new NotingApp(std::move(application));
}

void PostWithContext(base::OnceClosure task) {
  TheWaiting().Post(std::move(task));
}

void RunWithContext(base::OnceClosure task, std::chrono::milliseconds timeout) {
  if (CefCurrentlyOn(TID_UI)) {
    std::move(task).Run();
    return;
  }
  // Shared: the task may run after this function has given up.
  const auto done = std::make_shared<std::promise<void>>();
  std::future<void> is_done = done->get_future();
  PostWithContext(base::BindOnce(
      [](base::OnceClosure closure, const std::shared_ptr<std::promise<void>>& promise) {
        std::move(closure).Run();
        promise->set_value();
      },
      std::move(task), done));
  is_done.wait_for(timeout);
}

}  // namespace cefbinding
