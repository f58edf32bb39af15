// A bridge over a CEF without an engine.
#pragma once

#include <set>

#include "bridge/kz_cef_bridge_impl.h"
#include "unit/bridge/failing_allocation.h"
#include "unit/bridge/fake_runtime.h"
#include "unit/instance/instance_test.h"

namespace kzcef::testing {

class BridgeTest : public BrowserInWindowTest {
 protected:
  ~BridgeTest() override {
    for (kzCefInstance* const instance : started_) {
      bridge_.DestroyInstance(instance);
    }
    cef_.RunTasks();
  }

  // A new current instance, which is freed with the test unless DestroyStarted did so.
  kzCefInstance* StartInstance() {
    EXPECT_EQ(bridge_.StartBrowser(parent_.handle(), L"http://a.test/"), parent_.handle());
    started_.insert(bridge_.GetInstance());
    return bridge_.GetInstance();
  }
  void DestroyStarted(kzCefInstance* instance) {
    started_.erase(instance);
    bridge_.DestroyInstance(instance);
  }
  void FailBrowsers() {
    cef_.on_create_browser = [](const recording_cef::Creation&) { throw std::bad_alloc(); };
  }

  FakeRuntime runtime_;
  kzCefBridgeImpl bridge_;

 private:
  std::set<kzCefInstance*> started_;
};

}  // namespace kzcef::testing
