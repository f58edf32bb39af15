// The engine's context, which comes into being on the UI thread some time after CefInitialize has
// returned. What needs it waits here: the creation of browsers, and the end of the engine, which
// crashes when it is ended sooner.
#pragma once

#include <chrono>

#include "include/base/cef_callback.h"
#include "include/cef_app.h"

namespace cefbinding {

// `application`, which may be null, behind one that takes note of the context.
CefRefPtr<CefApp> WithContextNoted(CefRefPtr<CefApp> application);

// Runs `task` in a task of its own on the UI thread once the context has been initialized, after
// those that came before it. Any thread.
void PostWithContext(base::OnceClosure task);

// The same, and returns once it has been done; on the UI thread, which could not do it meanwhile,
// does it at once. Gives up after `timeout`: a context whose profile cannot be opened never comes.
void RunWithContext(base::OnceClosure task, std::chrono::milliseconds timeout);

}  // namespace cefbinding
