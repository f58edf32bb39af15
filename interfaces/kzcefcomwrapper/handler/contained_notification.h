// Keeps errors inside callbacks of CEF, whose frames an exception must not unwind.
#pragma once

#include <utility>

#include "handler/host_notifications.h"

namespace kzcef {

// Returns what `body` returns, or `otherwise` when it throws (above all when there is no memory for
// a text).
template <typename Body, typename Answer>
Answer Contained(Body&& body, Answer otherwise) noexcept {
  try {
    return body();
  } catch (...) {
    return otherwise;
  }
}

// The same for a body without a result.
template <typename Body>
void Contained(Body&& body) noexcept {
  Contained(
      [&] {
        body();
        return true;
      },
      false);
}

// RaiseNotification, but errors end here, so that the callback goes on with what its variables
// hold. Returns whether the notification went through.
template <typename Raise>
bool RaiseContained(const CefRefPtr<CefBrowser>& browser, Raise&& raise) noexcept {
  return Contained([&] { return RaiseNotification(browser, std::forward<Raise>(raise)); }, false);
}

}  // namespace kzcef
