// Start-up and the cache lock as a test wants them.
#pragma once

namespace kzcef::testing {

// Stands in for the runtime's start-up and cache lock while it lives; one at a time.
class FakeRuntime {
 public:
  FakeRuntime();
  ~FakeRuntime();
  FakeRuntime(const FakeRuntime&) = delete;
  FakeRuntime& operator=(const FakeRuntime&) = delete;

  bool start_result = true;
  bool release_result = true;
  bool release_throws = false;
  int releases = 0;
  // How often CefShutdown had been called when the lock was given back.
  int shutdowns_before_release = 0;
};

}  // namespace kzcef::testing
