// Windows and waiting for the benchmarks that load pages.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

namespace kzbench {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<HANDLE, HandleCloser>;

// An event that resets itself when it was waited for. A name shares it with other processes.
UniqueHandle MakeEvent(const wchar_t* name = nullptr);

struct Patience {
  DWORD milliseconds = 120'000;
  // A process without which there is nothing to wait for; null for none.
  HANDLE process = nullptr;
};

// Waits for `event` and meanwhile takes window messages. Throws std::runtime_error, naming `what`,
// when patience ends.
void AwaitEvent(HANDLE event, const char* what, const Patience& patience = {});

// The same for what no event tells.
void AwaitTrue(const std::function<bool()>& condition, const char* what);

// Takes window messages for a while.
void Pump(DWORD milliseconds);

// A window to put a browser into, with a client area of 800 by 600 pixels.
class HostWindow {
 public:
  HostWindow();
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND hwnd() const { return hwnd_; }

 private:
  HWND hwnd_ = nullptr;
};

// A fresh folder below the one for temporary files, deleted with the object.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::wstring& path() const { return path_; }

 private:
  std::wstring path_;
};

}  // namespace kzbench
