// The engine's log: for LOG, DCHECK and their like, and for what the binding itself has to say.

#include "include/base/cef_logging.h"

#include <windows.h>

#include <cstdlib>
#include <string>

#include "library.h"
#include "log.h"

namespace {

void WriteToDebugger(const char* file, int line, const char* message) {
  const std::string text = std::string(file) + ":" + std::to_string(line) + ": " + message + "\n";
  OutputDebugStringA(text.c_str());
}

}  // namespace

int cef_get_min_log_level() {
  const auto function = cefbinding::Engine().log.get_min_level;
  return function ? function() : cef::logging::LOG_INFO;
}

int cef_get_vlog_level(const char* file_start, size_t N) {
  const auto function = cefbinding::Engine().log.get_vlog_level;
  return function ? function(file_start, N) : -1;
}

void cef_log(const char* file, int line, int severity, const char* message) {
  if (const auto write = cefbinding::Engine().log.write) {
    write(file, line, severity, message);
  } else {
    WriteToDebugger(file, line, message);
  }
  if (severity >= cef::logging::LOG_FATAL) {
    std::abort();
  }
}

namespace cef::logging {

LogMessage::LogMessage(const char* file, int line, LogSeverity severity)
    : severity_(severity), file_(file), line_(line), last_error_(GetLastError()) {}

LogMessage::~LogMessage() {
  cef_log(file_, line_, severity_, stream_.str().c_str());
  SetLastError(last_error_);
}

}  // namespace cef::logging

namespace cefbinding {

void LogError(const char* message, const char* detail) noexcept {
  try {
    cef_log(__FILE__, __LINE__, cef::logging::LOG_ERROR, (std::string(message) + detail).c_str());
  } catch (...) {
    OutputDebugStringA(message);
  }
}

}  // namespace cefbinding
