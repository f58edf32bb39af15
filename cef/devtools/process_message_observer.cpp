#include "devtools/process_message_observer.h"

#include <mutex>

namespace cefedition {
namespace {

// Recursive, because an observer may send a message itself.
std::recursive_mutex& ObserverLock() {
  static std::recursive_mutex lock;
  return lock;
}

ProcessMessageObserver* g_observer = nullptr;

}  // namespace

void SetProcessMessageObserver(ProcessMessageObserver* observer) {
  std::lock_guard hold(ObserverLock());
  g_observer = observer;
}

void NotifyProcessMessage(CefRefPtr<CefFrame> frame, CefRefPtr<CefProcessMessage> message) {
  std::lock_guard hold(ObserverLock());
  if (g_observer) {
    g_observer->OnProcessMessage(frame, message->Copy());
  }
}

}  // namespace cefedition
