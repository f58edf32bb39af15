#include "devtools/engine_threads.h"

#include <array>
#include <mutex>

#include "devtools/log.h"

namespace cefedition {
namespace {

struct Registry {
  std::mutex lock;
  std::shared_ptr<TaskThread> ui;
  std::shared_ptr<TaskThread> io;
  std::shared_ptr<TaskThread> background;
};

// Never destroyed: tasks may still be posted, in vain, while the process ends.
Registry& Threads() {
  static Registry& registry = *new Registry;
  return registry;
}

bool PostTo(CefThreadId id, Task task) {
  const std::shared_ptr<TaskThread> thread = FindEngineThread(id);
  return thread && thread->Post(std::move(task));
}

}  // namespace

void StartEngineThreads() {
  Registry& threads = Threads();
  std::lock_guard hold(threads.lock);
  threads.ui = std::make_shared<TaskThread>(TaskThread::Kind::kWindows);
  threads.io = std::make_shared<TaskThread>(TaskThread::Kind::kPlain);
  threads.background = std::make_shared<TaskThread>(TaskThread::Kind::kPlain);
}

void StopEngineThreads(std::chrono::milliseconds timeout) {
  Registry& threads = Threads();
  for (auto* slot : {&threads.ui, &threads.io, &threads.background}) {
    std::shared_ptr<TaskThread> thread;
    {
      std::lock_guard hold(threads.lock);
      thread = *slot;
    }
    if (thread && !thread->Stop(timeout)) {
      Log(LOGSEVERITY_ERROR, "A thread is stuck in a callback and is left behind");
      new std::shared_ptr<TaskThread>(thread);
    }
    std::lock_guard hold(threads.lock);
    slot->reset();
  }
}

std::shared_ptr<TaskThread> FindEngineThread(CefThreadId id) {
  Registry& threads = Threads();
  std::lock_guard hold(threads.lock);
  switch (id) {
    case TID_UI:
      return threads.ui;
    case TID_IO:
      return threads.io;
    case TID_FILE_BACKGROUND:
    case TID_FILE_USER_VISIBLE:
    case TID_FILE_USER_BLOCKING:
    case TID_PROCESS_LAUNCHER:
      return threads.background;
    default:
      return nullptr;
  }
}

bool PostToUi(Task task) {
  return PostTo(TID_UI, std::move(task));
}

bool PostToIo(Task task) {
  return PostTo(TID_IO, std::move(task));
}

bool PostToBackground(Task task) {
  return PostTo(TID_FILE_BACKGROUND, std::move(task));
}

bool OnUiThread() {
  const std::shared_ptr<TaskThread> thread = FindEngineThread(TID_UI);
  return thread && thread->IsCurrent();
}

}  // namespace cefedition
