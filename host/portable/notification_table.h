// The notifications of IKZCEFComBrowserHandler to IKZCEFComBrowserHandler3 and their parameters, as
// far as a steps file may speak of them.
#pragma once

#include <span>
#include <string_view>

namespace kzhost {

enum class ArgumentKind { kText, kFlag, kNumber };

struct ArgumentInfo {
  std::string_view name;
  ArgumentKind kind;
  bool in_out;  // the handler may write it
};

struct NotificationInfo {
  std::string_view name;
  std::span<const ArgumentInfo> arguments;

  // Returns null when the notification has no such argument.
  const ArgumentInfo* Find(std::string_view argument) const;
};

// Returns null for a name that is no notification.
const NotificationInfo* FindNotification(std::string_view name);

}  // namespace kzhost
