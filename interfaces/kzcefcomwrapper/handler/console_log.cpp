// Reads the switch once, and opens the log for each record anew and shared, so that others can use
// the file while the host runs.

#include "handler/console_log.h"

#include <windows.h>

#include <share.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace kzcef {
namespace {

bool ReadSwitch() {
  constexpr const wchar_t* kVariable = L"KZCefConsoleLog";
  const DWORD size = GetEnvironmentVariableW(kVariable, nullptr, 0);
  if (size == 0) {
    return false;
  }
  std::wstring value(size, L'\0');
  value.resize(GetEnvironmentVariableW(kVariable, value.data(), size));
  return _wtoi(value.c_str()) == 1;
}

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

bool IsConsoleLogOn() {
  static const bool on = ReadSwitch();
  return on;
}

bool AppendToConsoleLog(const std::string& path, const std::string& record) {
  const std::unique_ptr<std::FILE, FileCloser> file(_fsopen(path.c_str(), "a", _SH_DENYNO));
  if (!file) {
    return false;
  }
  std::fputs(record.c_str(), file.get());
  return true;
}

}  // namespace kzcef
