// Remembers which living client handler has which dispatcher, so that an address in a message can
// be looked up and need not be trusted.

#include "handler/posted_message.h"

#include <map>
#include <mutex>
#include <utility>

#include "handler/contained_notification.h"
#include "utils/never_destroyed.h"

namespace kzcef {
namespace {

// The dispatcher of each living client handler that has one. An address that comes from the host is
// looked up here and goes no further: taking a reference to the handler could meet its destructor,
// taking one to its dispatcher under the lock cannot.
struct Dispatchers {
  std::mutex mutex;
  std::map<const kzCefClientHandler*, CefRefPtr<HostThreadDispatcher>> of_handler;
};

Dispatchers& LivingDispatchers() {
  static const NeverDestroyed<Dispatchers> dispatchers;
  return *dispatchers;
}

CefRefPtr<HostThreadDispatcher> DispatcherOf(const kzCefClientHandler* handler) {
  Dispatchers& dispatchers = LivingDispatchers();
  const std::lock_guard lock(dispatchers.mutex);
  const auto found = dispatchers.of_handler.find(handler);
  return found == dispatchers.of_handler.end() ? nullptr : found->second;
}

}  // namespace

void RememberDispatcher(const kzCefClientHandler* handler,
                        CefRefPtr<HostThreadDispatcher> dispatcher) {
  Dispatchers& dispatchers = LivingDispatchers();
  const std::lock_guard lock(dispatchers.mutex);
  if (dispatcher) {
    dispatchers.of_handler[handler] = std::move(dispatcher);
  } else {
    dispatchers.of_handler.erase(handler);
  }
}

void FinishPostedRequest(std::uint32_t identifier, const kzCefClientHandler* handler) noexcept {
  Contained([&] {
    if (const CefRefPtr<HostThreadDispatcher> dispatcher = DispatcherOf(handler)) {
      dispatcher->ProcessRequest(identifier);
    }
  });
}

}  // namespace kzcef
