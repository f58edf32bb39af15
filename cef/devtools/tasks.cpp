// CEF's tasks on the engine's threads.

#include "devtools/engine_threads.h"
#include "include/cef_task.h"

namespace cefedition {
namespace {

Task Wrap(CefRefPtr<CefTask> task) {
  return [task] { task->Execute(); };
}

class TaskRunner : public CefTaskRunner {
 public:
  TaskRunner(CefThreadId id, const std::shared_ptr<TaskThread>& thread)
      : id_(id), thread_(thread) {}

  bool IsSame(CefRefPtr<CefTaskRunner> that) override {
    const auto* other = static_cast<TaskRunner*>(that.get());
    return other && other->thread_.lock() == thread_.lock();
  }
  bool BelongsToCurrentThread() override {
    const std::shared_ptr<TaskThread> thread = thread_.lock();
    return thread && thread->IsCurrent();
  }
  bool BelongsToThread(CefThreadId thread_id) override {
    const std::shared_ptr<TaskThread> thread = thread_.lock();
    return thread && thread == FindEngineThread(thread_id);
  }
  bool PostTask(CefRefPtr<CefTask> task) override { return CefPostTask(id_, task); }
  bool PostDelayedTask(CefRefPtr<CefTask> task, int64_t delay_ms) override {
    return CefPostDelayedTask(id_, task, delay_ms);
  }

 private:
  const CefThreadId id_;
  const std::weak_ptr<TaskThread> thread_;

  IMPLEMENT_REFCOUNTING(TaskRunner);
};

}  // namespace
}  // namespace cefedition

CefRefPtr<CefTaskRunner> CefTaskRunner::GetForCurrentThread() {
  for (const CefThreadId id : {TID_UI, TID_IO, TID_FILE_BACKGROUND}) {
    if (CefCurrentlyOn(id)) {
      return GetForThread(id);
    }
  }
  return nullptr;
}

CefRefPtr<CefTaskRunner> CefTaskRunner::GetForThread(CefThreadId threadId) {
  std::shared_ptr<cefedition::TaskThread> thread = cefedition::FindEngineThread(threadId);
  if (!thread) {
    return nullptr;
  }
  return new cefedition::TaskRunner(threadId, thread);
}

bool CefCurrentlyOn(CefThreadId threadId) {
  const std::shared_ptr<cefedition::TaskThread> thread = cefedition::FindEngineThread(threadId);
  return thread && thread->IsCurrent();
}

bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task) {
  const std::shared_ptr<cefedition::TaskThread> thread = cefedition::FindEngineThread(threadId);
  return thread && task && thread->Post(cefedition::Wrap(task));
}

bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64_t delay_ms) {
  const std::shared_ptr<cefedition::TaskThread> thread = cefedition::FindEngineThread(threadId);
  return thread && task &&
         thread->PostDelayed(cefedition::Wrap(task), std::chrono::milliseconds(delay_ms));
}
