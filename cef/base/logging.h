#pragma once

#include <functional>
#include <string_view>

#include "include/base/cef_logging.h"

namespace cefedition {

// Receives the lines of LOG and CHECK. Called on any thread, one call at a time.
using LogSink = std::function<
    void(cef::logging::LogSeverity severity, const char* file, int line, std::string_view message)>;

// Replaces where log lines go and which are written at all. Without a sink they go to the
// debugger. |min_severity| is -1 (verbose) to 3 (fatal only).
void SetLogSink(LogSink sink, cef::logging::LogSeverity min_severity);

}  // namespace cefedition
