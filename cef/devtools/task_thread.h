#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "devtools/win_handle.h"

namespace cefedition {

using Task = std::function<void()>;

/// A thread that runs posted tasks one after the other, in the order in which they became due.
class TaskThread {
 public:
  enum class Kind {
    /// Also dispatches window messages; COM is initialised as a single-threaded apartment.
    kWindows,
    /// Tasks only; COM is initialised as part of the multi-threaded apartment.
    kPlain,
  };

  explicit TaskThread(Kind kind);
  /// Stops the thread if that has not been done.
  ~TaskThread();
  TaskThread(const TaskThread&) = delete;
  TaskThread& operator=(const TaskThread&) = delete;

  /// Any thread. False once the thread has been told to stop; the task is then dropped. A task is
  /// never run inside another one, also not while the other one runs a message loop of its own,
  /// except in `RunModal`.
  bool Post(Task task);
  bool PostDelayed(Task task, std::chrono::milliseconds delay);

  /// Runs the tasks that are due, drops those that are not, and waits for the thread to end. While
  /// it waits, the calling thread answers messages sent to its windows. False after `timeout`; the
  /// object must then live on. Not on the thread itself.
  bool Stop(std::chrono::milliseconds timeout = std::chrono::milliseconds::max());

  bool IsCurrent() const;

  /// Runs `loop`, which runs a message loop of the system's (a menu's), and tasks go on meanwhile.
  /// On a thread with windows, from a task that leaves nothing half done.
  void RunModal(const Task& loop);

 private:
  using Clock = std::chrono::steady_clock;

  void Run(Kind kind);
  /// Takes the next due task; false when there is none. `wait_ms` then says how long to wait.
  bool TakeDue(Task& task, DWORD& wait_ms);
  void Wake();
  /// Runs one task that is due, if there is one, and sees to it that the next gets its turn.
  void RunInModalLoop(HWND window);
  static LRESULT CALLBACK ModalWindowProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  std::mutex lock_;
  std::deque<Task> ready_;
  std::multimap<Clock::time_point, Task> delayed_;
  bool stopping_ = false;
  /// Gets a message when there may be something to run; null outside of `RunModal`.
  HWND modal_window_ = nullptr;
  UniqueHandle wake_;
  UniqueHandle ended_;
  std::thread thread_;
};

/// Waits for `handle` on a thread that may own windows: messages sent by other threads are answered
/// meanwhile, posted ones stay where they are. False after `timeout`.
bool WaitAnsweringSentMessages(HANDLE handle, std::chrono::milliseconds timeout);

}  // namespace cefedition
