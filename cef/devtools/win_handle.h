#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace cefedition {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// Owns a kernel handle. Functions that report failure by INVALID_HANDLE_VALUE are checked before
/// their result is given to one.
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

}  // namespace cefedition
