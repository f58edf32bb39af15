// include/wrapper/cef_closure_task.h of CEF 123, as far as it is
// used here: posting closures to threads.
#pragma once

#include "include/base/cef_callback.h"
#include "include/cef_task.h"

// Returns a task that runs |closure|.
CefRefPtr<CefTask> CefCreateClosureTask(base::OnceClosure closure);
CefRefPtr<CefTask> CefCreateClosureTask(const base::RepeatingClosure& closure);

// Queue |closure|; see the functions of the same names in cef_task.h.
bool CefPostTask(CefThreadId threadId, base::OnceClosure closure);
bool CefPostTask(CefThreadId threadId, const base::RepeatingClosure& closure);
bool CefPostDelayedTask(CefThreadId threadId, base::OnceClosure closure, int64_t delay_ms);
bool CefPostDelayedTask(CefThreadId threadId,
                        const base::RepeatingClosure& closure,
                        int64_t delay_ms);
