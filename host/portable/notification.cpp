// Writes a notification as a line of the events file and as a line for people.

#include "portable/notification.h"

namespace kzhost {

std::string Dump(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string ToJsonLine(const Notification& notification) {
  Json line = {{"seq", notification.sequence},
               {"browser", notification.browser},
               {"notification", notification.name}};
  for (const auto& [name, value] : notification.arguments.items()) {
    line[name] = value;
  }
  if (!notification.answered.empty()) {
    line["answered"] = notification.answered;
  }
  line["window"] = notification.owner_window;
  line["thread"] = notification.thread;
  return Dump(line);
}

std::string ToPlainLine(const Notification& notification) {
  std::string line = notification.browser + " " + notification.name;
  for (const auto& [name, value] : notification.arguments.items()) {
    line += " " + name + "=" + (value.is_string() ? value.get<std::string>() : Dump(value));
  }
  if (!notification.answered.empty()) {
    line += " -> " + Dump(notification.answered);
  }
  return line;
}

}  // namespace kzhost
