// Holds the published dispatchers in one atomic pointer, which the engine's threads read.

#include "handler/host_notifications.h"

#include <atomic>

#include "utils/never_destroyed.h"

namespace kzcef {
namespace {

std::atomic<std::shared_ptr<HostNotifications>>& Published() {
  static const NeverDestroyed<std::atomic<std::shared_ptr<HostNotifications>>> published;
  return *published;
}

}  // namespace

std::shared_ptr<HostNotifications> CurrentHostNotifications() {
  return Published().load();
}

void PublishHostNotifications(std::shared_ptr<HostNotifications> notifications) {
  Published().store(std::move(notifications));
}

}  // namespace kzcef
