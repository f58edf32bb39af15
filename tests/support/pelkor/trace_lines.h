// What reached the double of the host's trace library.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kzcef {

// The arguments of one call of suTrace.
struct TraceLine {
  std::string tag;
  std::wstring format;
  std::wstring text;

  bool operator==(const TraceLine&) const = default;
};

// All calls so far; none while the library is not loaded into this process.
inline std::vector<TraceLine> TraceLines() {
  std::vector<TraceLine> lines;
  const HMODULE library = GetModuleHandleW(L"pelkor.dll");
  if (!library) {
    return lines;
  }
  const auto count =
      reinterpret_cast<std::size_t (*)()>(GetProcAddress(library, "PelkorLineCount"));
  const auto tag =
      reinterpret_cast<const char* (*)(std::size_t)>(GetProcAddress(library, "PelkorTag"));
  const auto format =
      reinterpret_cast<const wchar_t* (*)(std::size_t)>(GetProcAddress(library, "PelkorFormat"));
  const auto text =
      reinterpret_cast<const wchar_t* (*)(std::size_t)>(GetProcAddress(library, "PelkorText"));
  for (std::size_t i = 0; i < count(); ++i) {
    lines.push_back({tag(i), format(i), text(i)});
  }
  return lines;
}

// The third arguments alone.
inline std::vector<std::wstring> TraceTexts() {
  std::vector<std::wstring> texts;
  for (const TraceLine& line : TraceLines()) {
    texts.push_back(line.text);
  }
  return texts;
}

}  // namespace kzcef
