#pragma once

#include "include/cef_base.h"

// An event that threads wait for. Not to be waited for on the UI or IO thread.
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
