#include "include/cef_waitable_event.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

class WaitableEvent final : public CefWaitableEvent {
 public:
  explicit WaitableEvent(UniqueHandle event) : event_(std::move(event)) {}

  void Reset() override { ResetEvent(event_.get()); }
  void Signal() override { SetEvent(event_.get()); }
  // Resets an automatic event that was signaled.
  bool IsSignaled() override { return WaitFor(0); }
  void Wait() override { WaitFor(INFINITE); }
  bool TimedWait(int64_t max_ms) override {
    constexpr int64_t kLongest = INFINITE - 1;
    return WaitFor(static_cast<DWORD>(std::clamp<int64_t>(max_ms, 0, kLongest)));
  }

 private:
  bool WaitFor(DWORD milliseconds) {
    return WaitForSingleObject(event_.get(), milliseconds) == WAIT_OBJECT_0;
  }

  const UniqueHandle event_;

  IMPLEMENT_REFCOUNTING(WaitableEvent);
};

}  // namespace

CefRefPtr<CefWaitableEvent> CefWaitableEvent::CreateWaitableEvent(bool automatic_reset,
                                                                  bool initially_signaled) {
  UniqueHandle event(CreateEventW(nullptr, !automatic_reset, initially_signaled, nullptr));
  return event ? new WaitableEvent(std::move(event)) : nullptr;
}
