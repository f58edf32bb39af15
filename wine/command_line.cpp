#include "command_line.h"

namespace kz::wine {
namespace {

// The program is the text up to the first blank, or in quotation marks.
size_t ProgramLength(std::wstring_view command_line) {
  bool quoted = false;
  size_t length = 0;
  for (; length < command_line.size(); ++length) {
    const wchar_t character = command_line[length];
    if (character == L'"') {
      quoted = !quoted;
    } else if (!quoted && (character == L' ' || character == L'\t')) {
      break;
    }
  }
  return length;
}

// Chromium names the kind of each process that it starts itself.
bool IsBrowserProcess(std::wstring_view command_line) {
  return command_line.find(L"--type=") == std::wstring_view::npos;
}

std::wstring EngineCommandLine() {
  const std::wstring_view own = GetCommandLineW();
  return IsBrowserProcess(own) ? WithFirstArgument(own, L"--disable-gpu") : std::wstring(own);
}

}  // namespace

// First, because what follows "--" in the command line is no switch.
std::wstring WithFirstArgument(std::wstring_view command_line, std::wstring_view text) {
  const size_t program = ProgramLength(command_line);
  std::wstring result(command_line.substr(0, program));
  result += L' ';
  result += text;
  result += command_line.substr(program);
  return result;
}

LPWSTR WINAPI SuppliedGetCommandLineW() {
  static std::wstring text = EngineCommandLine();
  return text.data();
}

}  // namespace kz::wine
