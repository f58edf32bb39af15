#include "devtools/task_thread.h"

#include <objbase.h>

#include <algorithm>
#include <utility>

namespace cefedition {

TaskThread::TaskThread(Kind kind)
    : wake_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_([this, kind] { Run(kind); }) {}

TaskThread::~TaskThread() {
  Stop();
}

bool TaskThread::Post(Task task) {
  std::lock_guard hold(lock_);
  if (stopping_) {
    return false;
  }
  ready_.push_back(std::move(task));
  Wake();
  return true;
}

bool TaskThread::PostDelayed(Task task, std::chrono::milliseconds delay) {
  if (delay.count() <= 0) {
    return Post(std::move(task));
  }
  std::lock_guard hold(lock_);
  if (stopping_) {
    return false;
  }
  delayed_.emplace(Clock::now() + delay, std::move(task));
  Wake();
  return true;
}

bool TaskThread::Stop(std::chrono::milliseconds timeout) {
  {
    std::lock_guard hold(lock_);
    stopping_ = true;
    Wake();
  }
  if (thread_.joinable()) {
    if (!WaitAnsweringSentMessages(ended_.get(), timeout)) {
      return false;
    }
    thread_.join();
  }
  return true;
}

// With the lock held.
void TaskThread::Wake() {
  SetEvent(wake_.get());
  if (modal_window_) {
    PostMessageW(modal_window_, WM_NULL, 0, 0);
  }
}

void TaskThread::RunModal(const Task& loop) {
  // A window without a place on the screen: whoever runs the message loop delivers its messages.
  const HWND window = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      nullptr, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ModalWindowProc));
  HWND outer = nullptr;
  {
    std::lock_guard hold(lock_);
    outer = std::exchange(modal_window_, window);
    Wake();
  }
  loop();
  {
    std::lock_guard hold(lock_);
    modal_window_ = outer;
  }
  DestroyWindow(window);
}

LRESULT CALLBACK TaskThread::ModalWindowProc(HWND window,
                                             UINT message,
                                             WPARAM wparam,
                                             LPARAM lparam) {
  if (message == WM_NULL || message == WM_TIMER) {
    auto* self = reinterpret_cast<TaskThread*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    self->RunInModalLoop(window);
    return 0;
  }
  return DefWindowProcW(window, message, wparam, lparam);
}

void TaskThread::RunInModalLoop(HWND window) {
  Task task;
  DWORD wait_ms = INFINITE;
  if (TakeDue(task, wait_ms)) {
    // Before the task, which may run a message loop of its own; after all other messages, so that
    // the menu itself gets its turn.
    SetTimer(window, 1, USER_TIMER_MINIMUM, nullptr);
    task();
  } else if (wait_ms == INFINITE) {
    KillTimer(window, 1);
  } else {
    SetTimer(window, 1, wait_ms, nullptr);
  }
}

bool TaskThread::IsCurrent() const {
  return thread_.get_id() == std::this_thread::get_id();
}

bool TaskThread::TakeDue(Task& task, DWORD& wait_ms) {
  std::lock_guard hold(lock_);
  const auto now = Clock::now();
  while (!delayed_.empty() && delayed_.begin()->first <= now) {
    ready_.push_back(std::move(delayed_.begin()->second));
    delayed_.erase(delayed_.begin());
  }
  if (!ready_.empty()) {
    task = std::move(ready_.front());
    ready_.pop_front();
    return true;
  }
  wait_ms = INFINITE;
  if (!delayed_.empty()) {
    const auto wait =
        std::chrono::ceil<std::chrono::milliseconds>(delayed_.begin()->first - now).count();
    wait_ms = static_cast<DWORD>(std::min<int64_t>(wait, INFINITE - 1));
  }
  return false;
}

void TaskThread::Run(Kind kind) {
  const bool windows = kind == Kind::kWindows;
  const HRESULT com =
      CoInitializeEx(nullptr, windows ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED);
  for (;;) {
    Task task;
    DWORD wait_ms = INFINITE;
    if (TakeDue(task, wait_ms)) {
      task();
      // What a task holds goes with it, not after the windows have had their turn.
      task = nullptr;
    } else {
      {
        std::lock_guard hold(lock_);
        if (stopping_ && ready_.empty()) {
          break;
        }
      }
      HANDLE wake = wake_.get();
      if (windows) {
        MsgWaitForMultipleObjectsEx(1, &wake, wait_ms, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
      } else {
        WaitForSingleObject(wake, wait_ms);
      }
    }
    // Windows get their turn between any two tasks, so that a busy page cannot freeze them.
    MSG message;
    while (windows && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  std::multimap<Clock::time_point, Task> dropped;
  {
    std::lock_guard hold(lock_);
    dropped.swap(delayed_);
  }
  dropped.clear();
  if (SUCCEEDED(com)) {
    CoUninitialize();
  }
  SetEvent(ended_.get());
}

bool WaitAnsweringSentMessages(HANDLE handle, std::chrono::milliseconds timeout) {
  using Clock = std::chrono::steady_clock;
  const bool forever = timeout == std::chrono::milliseconds::max();
  const auto deadline = forever ? Clock::time_point::max() : Clock::now() + timeout;
  for (;;) {
    DWORD wait_ms = INFINITE;
    if (!forever) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
      wait_ms = static_cast<DWORD>(std::max<int64_t>(left.count(), 0));
    }
    const DWORD result = MsgWaitForMultipleObjectsEx(1, &handle, wait_ms, QS_SENDMESSAGE, 0);
    if (result == WAIT_OBJECT_0) {
      return true;
    }
    if (result != WAIT_OBJECT_0 + 1) {
      return false;
    }
    // Looking for posted messages is what delivers the sent ones.
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}

}  // namespace cefedition
