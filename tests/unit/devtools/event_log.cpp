#include "event_log.h"

#include <algorithm>

namespace cefedition {

bool PumpUntil(HANDLE changed, const std::function<bool()>& condition) {
  const ULONGLONG deadline = GetTickCount64() + 15'000;
  while (!condition()) {
    const ULONGLONG now = GetTickCount64();
    if (now >= deadline) {
      return false;
    }
    // Conditions about windows change with messages, others with the event.
    MsgWaitForMultipleObjectsEx(1, &changed, static_cast<DWORD>(deadline - now), QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  return true;
}

EventLog::EventLog() : changed_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

EventLog::~EventLog() {
  CloseHandle(changed_);
}

void EventLog::Add(const std::string& text) {
  std::lock_guard hold(lock_);
  events_.push_back(text);
  SetEvent(changed_);
}

std::vector<std::string> EventLog::All() const {
  std::lock_guard hold(lock_);
  return events_;
}

void EventLog::Clear() {
  std::lock_guard hold(lock_);
  events_.clear();
  waited_ = 0;
}

bool EventLog::WaitFor(const std::string& text) {
  return PumpUntil(changed_, [&] {
    std::lock_guard hold(lock_);
    for (size_t i = waited_; i < events_.size(); ++i) {
      if (events_[i].starts_with(text)) {
        waited_ = i + 1;
        return true;
      }
    }
    return false;
  });
}

bool EventLog::WaitUntil(const std::function<bool()>& condition) {
  return PumpUntil(changed_, condition);
}

std::vector<std::string> EventLog::Only(const std::vector<std::string>& beginnings) const {
  std::vector<std::string> found;
  for (const std::string& event : All()) {
    if (std::any_of(beginnings.begin(), beginnings.end(),
                    [&](const std::string& beginning) { return event.starts_with(beginning); })) {
      found.push_back(event);
    }
  }
  return found;
}

}  // namespace cefedition
