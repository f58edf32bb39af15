// Starts the process with pipes of which it inherits its own ends only, and
// kills it at the latest when the object goes.

#include "child_process.h"

#include <system_error>
#include <utility>

namespace kzcef {
namespace {

constexpr DWORD kPatienceMilliseconds = 30'000;

[[noreturn]] void ThrowError(DWORD error, const char* what) {
  throw std::system_error(static_cast<int>(error), std::system_category(), what);
}

// A pipe of which the child inherits the end that it uses.
struct Pipe {
  UniqueHandle read;
  UniqueHandle write;
};

Pipe MakePipe(UniqueHandle Pipe::*inherited) {
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  if (!CreatePipe(&read, &write, nullptr, 0)) {
    ThrowError(GetLastError(), "CreatePipe");
  }
  Pipe pipe{UniqueHandle(read), UniqueHandle(write)};
  SetHandleInformation((pipe.*inherited).get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  return pipe;
}

}  // namespace

ChildProcess::ChildProcess(const std::wstring& program, const std::wstring& arguments) {
  Pipe input = MakePipe(&Pipe::read);
  Pipe output = MakePipe(&Pipe::write);
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input.read.get();
  startup.hStdOutput = output.write.get();
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION info = {};
  std::wstring command_line = L"\"" + program + L"\" " + arguments;
  if (!CreateProcessW(program.c_str(), command_line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                      nullptr, &startup, &info)) {
    ThrowError(GetLastError(), "CreateProcessW");
  }
  CloseHandle(info.hThread);
  process_.reset(info.hProcess);
  id_ = info.dwProcessId;
  input_ = std::move(input.write);
  output_ = std::move(output.read);
}

ChildProcess::~ChildProcess() {
  if (process_) {
    Kill();
  }
}

std::string ChildProcess::ReadLine() {
  std::string line;
  char next = 0;
  for (DWORD read = 0; ReadFile(output_.get(), &next, 1, &read, nullptr) && read == 1;) {
    if (next == '\n') {
      break;
    }
    if (next != '\r') {
      line += next;
    }
  }
  return line;
}

DWORD ChildProcess::Wait() {
  if (WaitForSingleObject(process_.get(), kPatienceMilliseconds) != WAIT_OBJECT_0) {
    ThrowError(WAIT_TIMEOUT, "ChildProcess::Wait");
  }
  DWORD exit_code = 0;
  GetExitCodeProcess(process_.get(), &exit_code);
  return exit_code;
}

void ChildProcess::Kill() {
  TerminateProcess(process_.get(), 1);
  WaitForSingleObject(process_.get(), kPatienceMilliseconds);
}

}  // namespace kzcef
