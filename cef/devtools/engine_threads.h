#pragma once

#include <chrono>
#include <memory>

#include "devtools/task_thread.h"
#include "include/cef_task.h"

namespace cefedition {

// The threads that run between CefInitialize and CefShutdown: the UI thread (a message loop; it
// owns the windows), the IO thread, and one background thread behind the file and launcher ids.

/// Starts all of them.
void StartEngineThreads();

/// Stops them one after the other, the UI thread first. A thread that does not come to its end in
/// time, because it is stuck in a callback, is left behind. Not on one of them.
void StopEngineThreads(std::chrono::milliseconds timeout);

/// The thread behind an id; null when it does not run or the edition has none.
std::shared_ptr<TaskThread> FindEngineThread(CefThreadId id);

/// Shorthand for posting to the UI, IO and background thread. False when it does not run.
bool PostToUi(Task task);
bool PostToIo(Task task);
bool PostToBackground(Task task);

/// Whether the caller is on the UI thread.
bool OnUiThread();

}  // namespace cefedition
