// include/cef_task.h of CEF 123, as far as it is used here: work for the engine's threads.
#pragma once

#include "include/cef_base.h"

typedef cef_thread_id_t CefThreadId;

// A piece of work posted to a thread. It may be released on another thread if it never ran.
class CefTask : public virtual CefBaseRefCounted {
 public:
  virtual void Execute() = 0;
};

// Posts work to one thread.
class CefTaskRunner : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefTaskRunner> GetForCurrentThread();
  static CefRefPtr<CefTaskRunner> GetForThread(CefThreadId threadId);
  virtual bool IsSame(CefRefPtr<CefTaskRunner> that) = 0;
  virtual bool BelongsToCurrentThread() = 0;
  virtual bool BelongsToThread(CefThreadId threadId) = 0;
  virtual bool PostTask(CefRefPtr<CefTask> task) = 0;
  virtual bool PostDelayedTask(CefRefPtr<CefTask> task, int64_t delay_ms) = 0;
};

// Returns true when called on the given thread.
bool CefCurrentlyOn(CefThreadId threadId);

// Queues a task. Returns false when the thread does not exist (any more).
bool CefPostTask(CefThreadId threadId, CefRefPtr<CefTask> task);

// Queues a task to run after |delay_ms| milliseconds.
bool CefPostDelayedTask(CefThreadId threadId, CefRefPtr<CefTask> task, int64_t delay_ms);
