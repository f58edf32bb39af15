// The message loop of the user-interface thread.
#pragma once

#include <windows.h>

#include <atomic>
#include <chrono>
#include <functional>

namespace kzhost {

// The time-out of a wait that only its condition ends.
constexpr std::chrono::hours kForever{24 * 365 * 100};

// Handles messages until `done` returns true or `timeout` has passed. Calls `done` after each batch
// of messages and at least every 20 ms, for conditions that no message announces. Returns what
// `done` returned last.
bool PumpUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);

// A message-only window by which other threads ask the user-interface thread to do something.
class Mailbox {
 public:
  // Made on the user-interface thread, where `on_mail` will run, and destroyed there.
  explicit Mailbox(std::function<void()> on_mail);
  ~Mailbox();
  Mailbox(const Mailbox&) = delete;
  Mailbox& operator=(const Mailbox&) = delete;

  // Makes `on_mail` run soon, once for all posts up to then. Any thread; never waits.
  void Post();

 private:
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  std::function<void()> on_mail_;
  HWND window_ = nullptr;
  std::atomic<bool> is_waiting_ = false;
};

}  // namespace kzhost
