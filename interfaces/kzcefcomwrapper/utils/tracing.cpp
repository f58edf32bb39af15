// Reads the switch once, finds the host's trace library on demand and passes each line to it.

#include "utils/tracing.h"

#include <windows.h>

#include <atomic>
#include <string_view>

#include "utils/kzcefwrapperutils.h"
#include "utils/text.h"

namespace kzcef {
namespace {

using TraceFunction = void (*)(const char* tag, const wchar_t* format, const wchar_t* argument);

bool IsSwitchedOn() {
  std::wstring value(GetEnvironmentVariableW(L"CefLogEnabled", nullptr, 0), L'\0');
  value.resize(
      GetEnvironmentVariableW(L"CefLogEnabled", value.data(), static_cast<DWORD>(value.size())));
  return LeadingInteger(std::wstring_view(value)) == 1;
}

// The host's trace function; null while its library or its export is missing, which is looked for
// again at each call. Two threads that bind at once find the same values. The library stays loaded.
TraceFunction BoundTraceFunction() {
  static std::atomic<HMODULE> library{nullptr};
  static std::atomic<TraceFunction> function{nullptr};
  if (!function) {
    if (!library) {
      library = LoadLibraryW((GetExecutableFolder() + L"\\pelkor.dll").c_str());
    }
    if (library) {
      function = reinterpret_cast<TraceFunction>(GetProcAddress(library, "suTrace"));
    }
  }
  return function;
}

}  // namespace

bool IsTraceEnabled() {
  static const bool is_enabled = IsSwitchedOn();
  return is_enabled;
}

void Trace(const std::wstring& text, unsigned char /*level*/) {
  if (!IsTraceEnabled()) {
    return;
  }
  const std::wstring line = L"KZCEF Trace: " + text;
  if (const TraceFunction trace = BoundTraceFunction()) {
    trace("KZCEF", L"%s", line.c_str());
  }
}

void Trace2(const CefString& first, const CefString& second, unsigned char level) {
  Trace(first.ToWString() + second.ToWString(), level);
}

}  // namespace kzcef
