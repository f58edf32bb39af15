// The callback of a request for credentials that writes down how it is answered.
#pragma once

#include <functional>
#include <vector>

#include "include/cef_auth_callback.h"

namespace recording_cef {

// One call of CefAuthCallback::Continue.
struct Credentials {
  CefString username;
  CefString password;
};

class FakeAuthCallback final : public CefAuthCallback {
 public:
  std::vector<Credentials> continuations;
  int cancel_count = 0;
  // Called inside Continue and Cancel, after the call was written down.
  std::function<void()> on_answer;

  void Continue(const CefString& username, const CefString& password) override {
    continuations.push_back({username, password});
    Answered();
  }
  void Cancel() override {
    ++cancel_count;
    Answered();
  }

 private:
  void Answered() const {
    if (on_answer) {
      on_answer();
    }
  }

  IMPLEMENT_REFCOUNTING(FakeAuthCallback);
};

}  // namespace recording_cef
