// What a callback of CEF runs: CEF's frames cannot be unwound, so no error leaves one.
#pragma once

#include <utility>

#include "handler/host_notifications.h"

namespace kzcef {

// Answers what `body` does, or `otherwise` when it throws (no memory for a text, above all).
template <typename Body, typename Answer>
Answer Contained(Body&& body, Answer otherwise) noexcept {
  try {
    return body();
  } catch (...) {
    return otherwise;
  }
}

// The same for a body without an answer.
template <typename Body>
void Contained(Body&& body) noexcept {
  Contained(
      [&] {
        body();
        return true;
      },
      false);
}

// RaiseNotification whose error ends here, so that the callback goes on with what its variables
// hold. Answers whether the notification went through.
template <typename Raise>
bool RaiseContained(const CefRefPtr<CefBrowser>& browser, Raise&& raise) noexcept {
  return Contained([&] { return RaiseNotification(browser, std::forward<Raise>(raise)); }, false);
}

}  // namespace kzcef
