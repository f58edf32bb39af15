// include/cef_waitable_event.h over the C API.

#include "include/cef_waitable_event.h"

#include "binding.h"

namespace cefbinding {
namespace {

class WaitableEventObject final : public LibraryObject<CefWaitableEvent> {
 public:
  explicit WaitableEventObject(Struct* object) : LibraryObject(object) {}

  void Reset() override { Call(&Struct::reset); }
  void Signal() override { Call(&Struct::signal); }
  bool IsSignaled() override { return Call(&Struct::is_signaled); }
  void Wait() override { Call(&Struct::wait); }
  bool TimedWait(int64_t max_ms) override { return Call(&Struct::timed_wait, max_ms); }
};

}  // namespace

template <>
CefRefPtr<CefWaitableEvent> Counterpart<CefWaitableEvent>::LibraryClass::Wrap(Struct* object) {
  return new WaitableEventObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefWaitableEvent> CefWaitableEvent::CreateWaitableEvent(bool automatic_reset,
                                                                  bool initially_signaled) {
  return CallEngine(&capi::Functions::cef_waitable_event_create, automatic_reset,
                    initially_signaled);
}
