// A request of CEF's that only the host's own thread can finish.
#pragma once

#include <windows.h>

#include <optional>

namespace kzcef {

// Requests that are parked together share one question and its answer. Made on the thread on which
// CEF raised the request; asked and answered on the host's thread, once at most; freed on either,
// outside every lock.
class ParkedRequest {
 public:
  virtual ~ParkedRequest() = default;

  // Asks the user, modally to `main_window` (which may be null), and returns the index of what was
  // chosen, or -1 when the user chose nothing. Returns no value when the question could not be
  // asked.
  virtual std::optional<int> Ask(HWND main_window) noexcept = 0;
  // Completes the request with a choice that Ask returned, for this request or for one that it is
  // parked with, and releases the objects of CEF that it holds. May be called inside Ask, which
  // then goes on by itself.
  virtual void Answer(int choice) noexcept = 0;
};

}  // namespace kzcef
