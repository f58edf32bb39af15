// Tasks that run a closure, and the posting of closures to the engine's threads.

#include "include/wrapper/cef_closure_task.h"

namespace {

class ClosureTask final : public CefTask {
 public:
  explicit ClosureTask(base::OnceClosure closure) : closure_(std::move(closure)) {}

  void Execute() override { std::move(closure_).Run(); }

 private:
  base::OnceClosure closure_;

  IMPLEMENT_REFCOUNTING(ClosureTask);
};

}  // namespace

CefRefPtr<CefTask> CefCreateClosureTask(base::OnceClosure closure) {
  return new ClosureTask(std::move(closure));
}

CefRefPtr<CefTask> CefCreateClosureTask(const base::RepeatingClosure& closure) {
  return new ClosureTask(closure);
}

bool CefPostTask(CefThreadId threadId, base::OnceClosure closure) {
  return CefPostTask(threadId, CefCreateClosureTask(std::move(closure)));
}

bool CefPostTask(CefThreadId threadId, const base::RepeatingClosure& closure) {
  return CefPostTask(threadId, CefCreateClosureTask(closure));
}

bool CefPostDelayedTask(CefThreadId threadId, base::OnceClosure closure, int64_t delay_ms) {
  return CefPostDelayedTask(threadId, CefCreateClosureTask(std::move(closure)), delay_ms);
}

bool CefPostDelayedTask(CefThreadId threadId,
                        const base::RepeatingClosure& closure,
                        int64_t delay_ms) {
  return CefPostDelayedTask(threadId, CefCreateClosureTask(closure), delay_ms);
}
