#pragma once

#include <string>

#include "include/internal/cef_types.h"

namespace cefedition {

// The engine's log, the file of `CefSettings.log_file`. The browser process appends to the same
// file. All functions may be called on any thread.

/// Opens the log for appending and remembers the lowest severity that is written;
/// `LOGSEVERITY_DISABLE` writes nothing and creates no file. A file that cannot be opened is
/// given up silently: a log never keeps the engine from starting.
void OpenLog(const std::wstring& file, cef_log_severity_t minimum);

void CloseLog();

/// The open log's full path, empty without one.
std::wstring LogPath();

/// Whether lines of this severity are written.
bool IsLogged(cef_log_severity_t severity);

/// Appends one line with time, process, thread and severity. `text` is UTF-8.
void Log(cef_log_severity_t severity, const std::string& text);

}  // namespace cefedition
