// Raising a notification from inside a callback of CEF.
#pragma once

#include <utility>

#include "handler/host_notifications.h"

namespace kzcef {

// RaiseNotification for callers that CEF calls: CEF's frames cannot be unwound, so an error (no
// memory for a text, above all) ends here and the callback goes on with what its variables hold.
// Answers whether the notification went through.
template <typename Raise>
bool RaiseContained(const CefRefPtr<CefBrowser>& browser, Raise&& raise) noexcept {
  try {
    return RaiseNotification(browser, std::forward<Raise>(raise));
  } catch (...) {
    return false;
  }
}

}  // namespace kzcef
