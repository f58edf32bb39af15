// Keeps the latest notifications in memory and writes all of them to the
// events file and the console. One lock guards the numbering and the writing,
// so lines come in the order of their numbers.

#include "portable/notification_log.h"

#include <utility>

#include "portable/text_match.h"

namespace kzhost {

NotificationLog::NotificationLog(File events_file, std::FILE* console)
    : events_file_(std::move(events_file)), console_(console) {}

void NotificationLog::SetListener(std::function<void(const Notification&)> listener) {
  listener_ = std::move(listener);
}

void NotificationLog::Add(Notification notification) {
  {
    const std::lock_guard lock(mutex_);
    notification.sequence = next_sequence_++;
    WriteLine(ToJsonLine(notification));
    if (console_) {
      const std::string line = ToPlainLine(notification) + "\n";
      std::fwrite(line.data(), 1, line.size(), console_);
      std::fflush(console_);
    }
    kept_.push_back(notification);
    if (kept_.size() > kKept) {
      kept_.pop_front();
    }
  }
  if (listener_) {
    listener_(notification);
  }
}

void NotificationLog::AddRecord(Json record) {
  const std::lock_guard lock(mutex_);
  Json line = {{"seq", next_sequence_++}};
  line.update(record);
  WriteLine(Dump(line));
}

std::optional<Notification> NotificationLog::Find(std::uint64_t from,
                                                  const std::string& browser,
                                                  const std::string& name,
                                                  const Json& conditions) const {
  const std::lock_guard lock(mutex_);
  for (const Notification& notification : kept_) {
    if (notification.sequence >= from && notification.browser == browser &&
        notification.name == name && MatchesArguments(notification.arguments, conditions)) {
      return notification;
    }
  }
  return std::nullopt;
}

std::vector<Notification> NotificationLog::After(std::uint64_t from,
                                                 const std::string& browser) const {
  const std::lock_guard lock(mutex_);
  std::vector<Notification> found;
  for (const Notification& notification : kept_) {
    if (notification.sequence >= from && notification.browser == browser) {
      found.push_back(notification);
    }
  }
  return found;
}

std::uint64_t NotificationLog::NextSequence() const {
  const std::lock_guard lock(mutex_);
  return next_sequence_;
}

void NotificationLog::WriteLine(const std::string& line) {
  if (!events_file_) {
    return;
  }
  std::fwrite(line.data(), 1, line.size(), events_file_.get());
  std::fputc('\n', events_file_.get());
  std::fflush(events_file_.get());
}

}  // namespace kzhost
