// include/cef_task.h over the C API.

#include "include/cef_task.h"

#include "binding.h"

namespace cefbinding {
namespace {

class TaskRunnerObject final : public LibraryObject<CefTaskRunner> {
 public:
  explicit TaskRunnerObject(Struct* object) : LibraryObject(object) {}

  bool IsSame(CefRefPtr<CefTaskRunner> that) override { return Call(&Struct::is_same, that); }
  bool BelongsToCurrentThread() override { return Call(&Struct::belongs_to_current_thread); }
  bool BelongsToThread(CefThreadId threadId) override {
    return Call(&Struct::belongs_to_thread, threadId);
  }
  bool PostTask(CefRefPtr<CefTask> task) override { return Call(&Struct::post_task, task); }
  bool PostDelayedTask(CefRefPtr<CefTask> task, int64_t delay_ms) override {
    return Call(&Struct::post_delayed_task, task, delay_ms);
  }
};

}  // namespace

template <>
void Counterpart<CefTask>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefTask::Execute>(functions.execute);
}

template <>
CefRefPtr<CefTaskRunner> Counterpart<CefTaskRunner>::LibraryClass::Wrap(Struct* object) {
  return new TaskRunnerObject(object);
}

}  // namespace cefbinding
