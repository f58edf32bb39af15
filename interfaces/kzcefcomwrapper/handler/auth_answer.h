// The answer to a request for credentials.
#pragma once

#include <utility>

#include "handler/contained_notification.h"
#include "include/cef_auth_callback.h"

namespace kzcef {

// Owns the duty to answer: an object that is destroyed without having continued the request cancels
// it, so that no request waits for ever, whatever goes wrong on the way. Any thread.
class AuthAnswer {
 public:
  explicit AuthAnswer(CefRefPtr<CefAuthCallback> callback) : callback_(std::move(callback)) {}
  // Hands the duty over.
  AuthAnswer(AuthAnswer&& other) noexcept = default;
  AuthAnswer& operator=(AuthAnswer&&) = delete;
  ~AuthAnswer() {
    if (callback_) {
      Contained([this] { callback_->Cancel(); });
    }
  }

  // Called once at most.
  void Continue(const CefString& username, const CefString& password) {
    if (const CefRefPtr<CefAuthCallback> callback = std::exchange(callback_, nullptr)) {
      callback->Continue(username, password);
    }
  }

 private:
  CefRefPtr<CefAuthCallback> callback_;
};

}  // namespace kzcef
