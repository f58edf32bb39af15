#include "devtools/log.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <mutex>

#include "devtools/win_handle.h"

namespace cefedition {
namespace {

struct LogState {
  std::mutex lock;
  UniqueHandle file;
  std::wstring path;
  cef_log_severity_t minimum = LOGSEVERITY_INFO;
};

LogState& State() {
  static LogState state;
  return state;
}

const char* NameOf(cef_log_severity_t severity) {
  switch (severity) {
    case LOGSEVERITY_VERBOSE:
      return "VERBOSE";
    case LOGSEVERITY_WARNING:
      return "WARNING";
    case LOGSEVERITY_ERROR:
      return "ERROR";
    case LOGSEVERITY_FATAL:
      return "FATAL";
    default:
      return "INFO";
  }
}

}  // namespace

void OpenLog(const std::wstring& file, cef_log_severity_t minimum) {
  LogState& state = State();
  std::lock_guard hold(state.lock);
  state.file.reset();
  state.path.clear();
  state.minimum = minimum == LOGSEVERITY_DEFAULT ? LOGSEVERITY_INFO : minimum;
  if (minimum == LOGSEVERITY_DISABLE || file.empty()) {
    return;
  }
  std::error_code error;
  const std::filesystem::path full = std::filesystem::absolute(file, error);
  std::filesystem::create_directories(full.parent_path(), error);
  // Append access alone makes each write land at the end, also while the browser writes.
  HANDLE handle = CreateFileW(full.c_str(), FILE_APPEND_DATA,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return;
  }
  state.file.reset(handle);
  state.path = full.wstring();
}

void CloseLog() {
  LogState& state = State();
  std::lock_guard hold(state.lock);
  state.file.reset();
  state.path.clear();
}

std::wstring LogPath() {
  LogState& state = State();
  std::lock_guard hold(state.lock);
  return state.path;
}

bool IsLogged(cef_log_severity_t severity) {
  LogState& state = State();
  std::lock_guard hold(state.lock);
  return state.file && severity >= state.minimum;
}

void Log(cef_log_severity_t severity, const std::string& text) {
  LogState& state = State();
  std::lock_guard hold(state.lock);
  if (!state.file || severity < state.minimum) {
    return;
  }
  SYSTEMTIME now;
  GetLocalTime(&now);
  char head[96];
  std::snprintf(head, sizeof(head), "[%02u%02u/%02u%02u%02u.%03u:%lu:%lu:%s] ", now.wMonth,
                now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds,
                GetCurrentProcessId(), GetCurrentThreadId(), NameOf(severity));
  const std::string line = head + text + "\n";
  DWORD written = 0;
  WriteFile(state.file.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace cefedition
