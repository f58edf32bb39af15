#pragma once

#include <optional>
#include <string>

#include "devtools/protocol_connection.h"
#include "include/internal/cef_types.h"

namespace cefedition {

/// A line of the page's console as `OnConsoleMessage` reports it.
struct ConsoleMessage {
  cef_log_severity_t severity = LOGSEVERITY_INFO;
  std::string text;
  std::string source;
  /// Counted from 1; 0 where there is none.
  int line = 0;
};

/// `Runtime.consoleAPICalled`; nothing for calls that print nothing.
std::optional<ConsoleMessage> FromConsoleCall(const Json& params);

/// The `exceptionDetails` of an uncaught exception.
ConsoleMessage FromException(const Json& details);

/// The `entry` of `Log.entryAdded`: what the browser itself has to say.
ConsoleMessage FromLogEntry(const Json& entry);

}  // namespace cefedition
