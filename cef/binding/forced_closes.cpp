// Which browsers are being closed whatever their pages say.

#include "forced_closes.h"

#include <mutex>
#include <set>

namespace cefbinding {
namespace {

struct Closing {
  std::mutex mutex;
  std::set<int> browser_ids;
};

// Never destroyed: the engine's threads may outlive static objects.
Closing& TheClosing() {
  static auto* const closing = new Closing;
  return *closing;
}

}  // namespace

void NoteForcedClose(int browser_id) {
  Closing& closing = TheClosing();
  const std::lock_guard lock(closing.mutex);
  closing.browser_ids.insert(browser_id);
}

bool IsForcedToClose(CefBrowser& browser) {
  const CefRefPtr<CefBrowserHost> host = browser.GetHost();
  if (host && !IsWindow(host->GetWindowHandle())) {
    return true;
  }
  Closing& closing = TheClosing();
  const std::lock_guard lock(closing.mutex);
  return closing.browser_ids.contains(browser.GetIdentifier());
}

void ForgetForcedClose(int browser_id) {
  Closing& closing = TheClosing();
  const std::lock_guard lock(closing.mutex);
  closing.browser_ids.erase(browser_id);
}

}  // namespace cefbinding
