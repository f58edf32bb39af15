// The benchmarks of kzbench.
#pragma once

#include <string>

#include "loaders.h"
#include "measure.h"

namespace kzbench {

// The texts of cookies and their reader; and reading all cookies of a running engine's store,
// against a bare visit of the same store.
void RunCookies(const LoaderOptions& options, const Effort& effort);

// Late-bound calls on the server's objects, against ITypeInfo::Invoke on plain objects of the same
// interfaces. `server` is the DLL's path. Throws std::runtime_error when it cannot be used.
void RunLateBound(const std::wstring& server, const Effort& effort);

// The way of one notification to the handlers, against the calls that it consists of.
void RunNotifications(const Effort& effort);

// Loading the page with the server, a handler registered, and with CEF alone. With a hub port, both
// go through the hub.
void RunPage(const LoaderOptions& options, const Effort& effort);

// From the start of a process to the end of its first page, with the server and with CEF alone.
void RunStart(const LoaderOptions& options, const Effort& effort);

// What memory the host's process has after many pages and browsers, with the server and with CEF
// alone.
void RunMemory(const LoaderOptions& options, const Effort& effort);

}  // namespace kzbench
