// The notifications of all browsers in the order of their arrival.
#pragma once

#include <cstdint>
#include <cstdio>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "portable/notification.h"

namespace kzhost {

// Notifications arrive on the engine's threads and are read on the user-interface thread: every
// member may be called on any thread, unless it says otherwise.
class NotificationLog {
 public:
  using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

  // How many notifications are kept for Find and After; older ones are in the file only.
  static constexpr size_t kKept = 10'000;

  // `events_file` (may be null) receives each notification and record as one JSON line, flushed at
  // once; `console` (may be null, not owned) each notification as a plain line.
  NotificationLog(File events_file, std::FILE* console);

  // `listener` is called after each Add, on the same thread and without a lock held. Set it before
  // the first browser is created.
  void SetListener(std::function<void(const Notification&)> listener);

  // Numbers, keeps and writes `notification`.
  void Add(Notification notification);

  // Writes a record of the host's own into the events file, numbered like a notification.
  void AddRecord(Json record);

  // Returns the first notification numbered `from` or later that is of this browser, has this name
  // and meets these conditions on its arguments.
  std::optional<Notification> Find(std::uint64_t from,
                                   const std::string& browser,
                                   const std::string& name,
                                   const Json& conditions) const;

  // Returns the notifications of `browser` numbered `from` or later.
  std::vector<Notification> After(std::uint64_t from, const std::string& browser) const;

  // Returns the number that the next notification will get.
  std::uint64_t NextSequence() const;

 private:
  void WriteLine(const std::string& line);

  mutable std::mutex mutex_;
  File events_file_;
  std::FILE* console_;
  std::function<void(const Notification&)> listener_;
  std::deque<Notification> kept_;
  std::uint64_t next_sequence_ = 1;
};

}  // namespace kzhost
