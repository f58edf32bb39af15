#pragma once

#include <string>

#include "engine_fixture.h"
#include "input_client.h"

namespace cefedition {

/// A real page whose client hears of menus, keys, focus and draggable regions.
class InputFixture : public EngineTest {
 protected:
  InputFixture() : input_(new InputClient(&log_)) { client_ = input_; }

  /// Shows a page with this body, and forgets about the events of its load.
  void Load(const std::string& body) {
    server_.Add("/page", body);
    ASSERT_TRUE(StartEngine());
    CreateBrowser(client_, server_.Url("/page"));
    ASSERT_TRUE(log_.WaitFor("idle"));
    log_.Clear();
  }

  CefRefPtr<CefBrowserHost> Host() const { return client_->First()->GetHost(); }
  HWND View() const { return Host()->GetWindowHandle(); }

  const CefRefPtr<InputClient> input_;
};

}  // namespace cefedition
