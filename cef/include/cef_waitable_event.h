// include/cef_waitable_event.h of CEF 123, as far as it is used
// here: an event for threads to wait on.
#pragma once

#include "include/cef_base.h"

// An event that threads wait on. The UI and IO threads must not wait on it.
class CefWaitableEvent : public CefBaseRefCounted {
 public:
  static CefRefPtr<CefWaitableEvent> CreateWaitableEvent(bool automatic_reset,
                                                         bool initially_signaled);
  virtual void Reset() = 0;
  virtual void Signal() = 0;
  virtual bool IsSignaled() = 0;
  virtual void Wait() = 0;
  virtual bool TimedWait(int64_t max_ms) = 0;
};
