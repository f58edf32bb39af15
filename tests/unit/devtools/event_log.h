#pragma once

#include <windows.h>

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace cefedition {

/// What happened, one text an event, in order. Written on any thread; the test waits on its own,
/// where it also answers the messages of its windows.
class EventLog {
 public:
  EventLog();
  ~EventLog();

  void Add(const std::string& text);
  std::vector<std::string> All() const;
  void Clear();

  /// Waits until an event that begins with `text` has come; true if it has. The wait takes up after
  /// the event that the last successful wait found.
  bool WaitFor(const std::string& text);
  /// Waits for anything.
  bool WaitUntil(const std::function<bool()>& condition);
  /// The events that begin with one of these texts.
  std::vector<std::string> Only(const std::vector<std::string>& beginnings) const;

 private:
  mutable std::mutex lock_;
  std::vector<std::string> events_;
  size_t waited_ = 0;
  HANDLE changed_;
};

/// Waits on a thread with windows until `condition` holds, for at most 30 s. `changed` is an
/// auto-reset event that is set when the condition may have changed.
bool PumpUntil(HANDLE changed, const std::function<bool()>& condition);

}  // namespace cefedition
