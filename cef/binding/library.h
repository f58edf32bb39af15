// The engine's library, libcef.dll: found beside this module, examined and loaded once, at the
// first use of anything that it exports.
//
// Nothing of it is linked. A program without an engine, or with the wrong one, therefore runs: what
// it asks of the engine gives nothing, and a start fails with a reason that a person can read.
#pragma once

#include <filesystem>
#include <string>

#include "c_api.h"

namespace cefbinding {

// The engine's log. CEF's logging macros call these; its C API does not describe them.
struct LogFunctions {
  int (*get_min_level)();
  int (*get_vlog_level)(const char* file, size_t length);
  void (*write)(const char* file, int line, int severity, const char* message);
};

// A loaded library, or the reason why there is none.
struct Library {
  // Complete when `refusal` is empty, else all null.
  capi::Functions functions = {};
  LogFunctions log = {};
  // One sentence for the log; empty when the library is in use.
  std::string refusal;
};

// Loads `file` and takes its functions. Refuses a library whose API hash is not `expected_hash`,
// before anything else of it is called, and one that lacks a function. A refused library stays
// loaded: unloading it is not safe once its initializers have run. Any thread.
Library LoadEngine(const std::filesystem::path& file, const char* expected_hash);

// The engine of this program: libcef.dll in the folder of this module. Any thread.
const Library& Engine();

// Set once CefShutdown has returned. From then on objects of the engine are neither called nor
// released: the threads on which it destroys them are gone, and the process keeps what is left.
bool EngineHasEnded();
void SetEngineHasEnded();

}  // namespace cefbinding
