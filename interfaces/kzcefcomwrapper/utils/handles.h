// Owners of Win32 handles.
#pragma once

#include <windows.h>

#include <memory>

namespace kzcef {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

// Null when it holds nothing.
using UniqueHandle = std::unique_ptr<HANDLE, HandleCloser>;

// Takes what CreateFileW returns, whose failure is INVALID_HANDLE_VALUE and not null. The thread's
// last error stays as the call left it.
inline UniqueHandle FileHandle(HANDLE handle) noexcept {
  return UniqueHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace kzcef
