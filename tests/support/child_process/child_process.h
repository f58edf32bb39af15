// A process that a test starts, with a pipe at its standard input and one at its standard output.
#pragma once

#include <windows.h>

#include <string>

#include "utils/handles.h"

namespace kzcef {

class ChildProcess {
 public:
  // Starts `program` with `arguments` behind its quoted path. Throws std::system_error when that
  // fails.
  ChildProcess(const std::wstring& program, const std::wstring& arguments);
  // Kills the process if it still runs.
  ~ChildProcess();
  ChildProcess(ChildProcess&&) = default;
  ChildProcess& operator=(ChildProcess&&) = delete;

  DWORD id() const { return id_; }

  // Waits for the process's next line and returns it without its end; empty once there is none.
  std::string ReadLine();
  // Ends the process's standard input, which a waiting child takes as the word to go on.
  void CloseInput() { input_.reset(); }
  // Waits for the end of the process and returns its exit code. Throws std::system_error when it
  // does not end within 30 seconds.
  DWORD Wait();
  // Ends the process as a crash would, and waits until it is gone.
  void Kill();

 private:
  UniqueHandle process_;
  UniqueHandle input_;
  UniqueHandle output_;
  DWORD id_ = 0;
};

}  // namespace kzcef
