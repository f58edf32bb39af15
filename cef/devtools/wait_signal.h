#pragma once

#include <windows.h>

#include <chrono>

#include "devtools/task_thread.h"

namespace cefedition {

/// Something to wait for that another thread brings about; it may come after the wait was given up.
class Signal {
 public:
  Signal() : event_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
  void Set() { SetEvent(event_.get()); }
  bool Wait(std::chrono::milliseconds timeout) {
    return WaitAnsweringSentMessages(event_.get(), timeout);
  }

 private:
  UniqueHandle event_;
};

}  // namespace cefedition
