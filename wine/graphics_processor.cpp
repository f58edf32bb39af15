// Command lines of the engine's processes, read and changed; the gap is told in the header.
#include "graphics_processor.h"

namespace kz::wine {
namespace {

bool Contains(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

// The program is the text up to the first blank outside quotation marks.
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

// Chromium names the kind of every process that it starts itself. Such a process ends itself when
// nobody has connected to it within 15 s, which a busy machine needs longer for under Wine: the
// first page would then not be loaded ("Network service crashed" in the log). Not much longer,
// since that is also the end of a process whose parent ends before it has connected.
std::wstring EngineCommandLine() {
  const std::wstring_view own = GetCommandLineW();
  return WithFirstArgument(
      own, Contains(own, L"--type=") ? L"--ipc-connection-timeout=20" : L"--disable-gpu");
}

}  // namespace

// First, because what follows "--" in a command line is no switch.
std::wstring WithFirstArgument(std::wstring_view command_line, std::wstring_view argument) {
  const size_t program = ProgramLength(command_line);
  std::wstring result(command_line.substr(0, program));
  result += L' ';
  result += argument;
  result += command_line.substr(program);
  return result;
}

bool NeedsGraphicsProcessor(std::wstring_view command_line) {
  return Contains(command_line, L"--type=gpu-process") && !Contains(command_line, L"--use-gl=") &&
         !Contains(command_line, L"--use-angle=");
}

LPWSTR WINAPI SuppliedGetCommandLineW() {
  static std::wstring text = EngineCommandLine();
  return text.data();
}

BOOL WINAPI SuppliedCreateProcessW(LPCWSTR application,
                                   LPWSTR command_line,
                                   LPSECURITY_ATTRIBUTES process_attributes,
                                   LPSECURITY_ATTRIBUTES thread_attributes,
                                   BOOL inherit_handles,
                                   DWORD flags,
                                   LPVOID environment,
                                   LPCWSTR folder,
                                   LPSTARTUPINFOW start,
                                   LPPROCESS_INFORMATION process) {
  if (command_line && NeedsGraphicsProcessor(command_line)) {
    SetLastError(ERROR_NOT_SUPPORTED);
    return FALSE;
  }
  return CreateProcessW(application, command_line, process_attributes, thread_attributes,
                        inherit_handles, flags, environment, folder, start, process);
}

}  // namespace kz::wine
