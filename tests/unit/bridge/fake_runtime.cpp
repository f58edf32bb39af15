// Takes the place of start-up and cache lock when the bridge's tests are linked.

#include "unit/bridge/fake_runtime.h"

#include <stdexcept>

#include "recording_cef/recording_cef.h"
#include "runtime/cache_directory.h"
#include "runtime/startup.h"

namespace kzcef {
namespace {

testing::FakeRuntime* g_runtime = nullptr;

}  // namespace

namespace testing {

FakeRuntime::FakeRuntime() {
  g_runtime = this;
}

FakeRuntime::~FakeRuntime() {
  g_runtime = nullptr;
}

}  // namespace testing

// These take the place of the runtime's own, which are then not linked.

bool StartCefRuntime(HINSTANCE, IKZCEFComSettings*) noexcept {
  return g_runtime->start_result;
}

bool ReleaseCacheLock() {
  ++g_runtime->releases;
  g_runtime->shutdowns_before_release = recording_cef::RecordingCef::Get().shutdown_count;
  if (g_runtime->release_throws) {
    throw std::runtime_error("release");
  }
  return g_runtime->release_result;
}

}  // namespace kzcef
