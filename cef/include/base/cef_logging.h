// include/base/cef_logging.h of CEF 123, as far as it is used here:
// lines for the engine's log, and assertions.
#pragma once

#include <sstream>
#include <string>

#include "include/base/cef_build.h"
#include "include/internal/cef_logging_internal.h"

// LOG(INFO) << ..., CHECK and DCHECK. A failed CHECK ends the process; DCHECK does so in debug
// builds (or with DCHECK_ALWAYS_ON) and costs nothing otherwise.

namespace cef {
namespace logging {

typedef int LogSeverity;
const LogSeverity LOG_VERBOSE = -1;
const LogSeverity LOG_INFO = 0;
const LogSeverity LOG_WARNING = 1;
const LogSeverity LOG_ERROR = 2;
const LogSeverity LOG_FATAL = 3;
const LogSeverity LOG_NUM_SEVERITIES = 4;

// wingdi.h defines ERROR as 0, so LOG(ERROR) may arrive here as LOG_0.
const LogSeverity LOG_0 = LOG_ERROR;

#if defined(NDEBUG)
const LogSeverity LOG_DFATAL = LOG_ERROR;
#else
const LogSeverity LOG_DFATAL = LOG_FATAL;
#endif

inline int GetMinLogLevel() {
  return cef_get_min_log_level();
}

template <size_t N>
int GetVlogLevel(const char (&file)[N]) {
  return cef_get_vlog_level(file, N);
}

// Collects one line and writes it when it goes out of scope. Leaves GetLastError untouched.
class LogMessage {
 public:
  LogMessage(const char* file, int line, LogSeverity severity);
  LogMessage(const LogMessage&) = delete;
  LogMessage& operator=(const LogMessage&) = delete;
  ~LogMessage();

  std::ostream& stream() { return stream_; }

 private:
  const LogSeverity severity_;
  const char* const file_;
  const int line_;
  const unsigned long last_error_;
  std::ostringstream stream_;
};

// Makes a stream expression a statement of type void.
class LogMessageVoidify {
 public:
  void operator&(std::ostream&) {}
};

}  // namespace logging
}  // namespace cef

#if defined(NDEBUG) && !defined(DCHECK_ALWAYS_ON)
#define DCHECK_IS_ON() 0
#else
#define DCHECK_IS_ON() 1
#endif

#define LOG_IS_ON(severity) ((::cef::logging::LOG_##severity) >= ::cef::logging::GetMinLogLevel())
#define VLOG_IS_ON(verboselevel) ((verboselevel) <= ::cef::logging::GetVlogLevel(__FILE__))

#define CEF_LOG_STREAM_(severity) ::cef::logging::LogMessage(__FILE__, __LINE__, severity).stream()
// NOLINTBEGIN(bugprone-macro-parentheses): a statement, as CEF declares it.
#define LAZY_STREAM(stream, condition) \
  !(condition) ? (void)0 : ::cef::logging::LogMessageVoidify() & (stream)
// NOLINTEND(bugprone-macro-parentheses)

#define LOG(severity) \
  LAZY_STREAM(CEF_LOG_STREAM_(::cef::logging::LOG_##severity), LOG_IS_ON(severity))
#define LOG_IF(severity, condition) \
  LAZY_STREAM(CEF_LOG_STREAM_(::cef::logging::LOG_##severity), LOG_IS_ON(severity) && (condition))
#define VLOG(level) LAZY_STREAM(CEF_LOG_STREAM_(-(level)), VLOG_IS_ON(level))
#define VLOG_IF(level, condition) \
  LAZY_STREAM(CEF_LOG_STREAM_(-(level)), VLOG_IS_ON(level) && (condition))
#define DLOG(severity)                                         \
  LAZY_STREAM(CEF_LOG_STREAM_(::cef::logging::LOG_##severity), \
              DCHECK_IS_ON() && LOG_IS_ON(severity))

#define CHECK(condition)                                                \
  LAZY_STREAM(CEF_LOG_STREAM_(::cef::logging::LOG_FATAL), !(condition)) \
      << "Check failed: " #condition ". "
#define CHECK_EQ(val1, val2) CHECK((val1) == (val2))
#define CHECK_NE(val1, val2) CHECK((val1) != (val2))
#define CHECK_LE(val1, val2) CHECK((val1) <= (val2))
#define CHECK_LT(val1, val2) CHECK((val1) < (val2))
#define CHECK_GE(val1, val2) CHECK((val1) >= (val2))
#define CHECK_GT(val1, val2) CHECK((val1) > (val2))

#define DCHECK(condition)                                                                 \
  LAZY_STREAM(CEF_LOG_STREAM_(::cef::logging::LOG_FATAL), DCHECK_IS_ON() && !(condition)) \
      << "Check failed: " #condition ". "
#define DCHECK_EQ(val1, val2) DCHECK((val1) == (val2))
#define DCHECK_NE(val1, val2) DCHECK((val1) != (val2))
#define DCHECK_LE(val1, val2) DCHECK((val1) <= (val2))
#define DCHECK_LT(val1, val2) DCHECK((val1) < (val2))
#define DCHECK_GE(val1, val2) DCHECK((val1) >= (val2))
#define DCHECK_GT(val1, val2) DCHECK((val1) > (val2))

#define NOTREACHED() DCHECK(false)
#define NOTIMPLEMENTED() LOG(ERROR) << "Not implemented reached in " << __func__
