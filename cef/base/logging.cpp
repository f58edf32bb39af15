#include "logging.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <string>

#include "portable/utf.h"

namespace cefedition {
namespace {

// Never destroyed: lines may still be written while the process ends.
std::mutex& SinkLock() {
  static auto* const lock = new std::mutex;
  return *lock;
}

LogSink& Sink() {
  static auto* const sink = new LogSink;
  return *sink;
}

std::atomic_int g_min_severity = cef::logging::LOG_INFO;

}  // namespace

void SetLogSink(LogSink sink, cef::logging::LogSeverity min_severity) {
  const std::lock_guard lock(SinkLock());
  Sink() = std::move(sink);
  g_min_severity = min_severity;
}

}  // namespace cefedition

int cef_get_min_log_level() {
  return cefedition::g_min_severity;
}

int cef_get_vlog_level(const char*, size_t) {
  return -cefedition::g_min_severity;
}

void cef_log(const char* file, int line, int severity, const char* message) {
  {
    const std::lock_guard lock(cefedition::SinkLock());
    if (cefedition::Sink()) {
      cefedition::Sink()(severity, file, line, message);
    } else {
      const std::string text =
          std::string(file) + ":" + std::to_string(line) + ": " + message + "\n";
      OutputDebugStringA(text.c_str());
    }
  }
  if (severity >= cef::logging::LOG_FATAL) {
    std::abort();
  }
}

namespace cef {
namespace logging {

LogMessage::LogMessage(const char* file, int line, LogSeverity severity)
    : severity_(severity), file_(file), line_(line), last_error_(GetLastError()) {}

LogMessage::~LogMessage() {
  cef_log(file_, line_, severity_, stream_.str().c_str());
  SetLastError(last_error_);
}

}  // namespace logging
}  // namespace cef

std::ostream& operator<<(std::ostream& out, const wchar_t* wstr) {
  return out << cefedition::Utf16ToUtf8(wstr ? reinterpret_cast<const char16_t*>(wstr)
                                             : std::u16string_view());
}
