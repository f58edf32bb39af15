// The benchmarks of kzbench.
#pragma once

#include <optional>
#include <string>

#include "measure.h"

namespace kzbench {

/// Late-bound calls on the server's objects, against ITypeInfo::Invoke on plain objects of the same
/// interfaces. `server` is the DLL's path. Throws std::runtime_error when it cannot be used.
void RunLateBound(const std::wstring& server, const Effort& effort);

/// The way of one notification to the handlers, against the calls that it consists of.
void RunNotifications(const Effort& effort);

/// Loading `url` in a browser of the server's and in one of CEF's own, in this process.
void RunPage(const std::wstring& server, const std::wstring& url, const Effort& effort);

/// Loading `url` in a browser with the server's client, no handler registered, and in one whose
/// callbacks do nothing, on one engine; with `hub_port` the hub is on at that port. Needs a process
/// of its own.
void RunRequests(const std::wstring& url, std::optional<int> hub_port, const Effort& effort);

/// From the start of a process to the end of its first load of `url`, with the server and with CEF
/// alone. `program` is this program's path, which is started as each.
void RunStart(const std::wstring& program,
              const std::wstring& server,
              const std::wstring& url,
              const Effort& effort);

/// What RunStart starts: loads `url` once, with the server (`server` not empty) or with CEF alone,
/// and sets the event called `event` at the end of the load. The process's exit status.
int LoadOnce(const std::wstring& server, const std::wstring& url, const std::wstring& event);

}  // namespace kzbench
