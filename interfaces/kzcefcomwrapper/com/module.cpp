// Finds the module by the address of its own code, and switches activation context and resource
// module per thread; inside a scope of the same thread there is nothing left to switch.

#include "com/module.h"

#include <atomic>

namespace kzcef {
namespace {

std::atomic<long> lock_count{0};

// Null stands for the executable, as it does for the resource functions.
thread_local HINSTANCE resource_module = nullptr;

// The activation context of the manifest in this module's own resources.
class ModuleActivationContext {
 public:
  ModuleActivationContext() noexcept {
    ACTCTXW context{};
    context.cbSize = sizeof(context);
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = ModuleInstance();
    context.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
    handle_ = CreateActCtxW(&context);
  }
  ~ModuleActivationContext() {
    if (valid()) {
      ReleaseActCtx(handle_);
    }
  }
  ModuleActivationContext(const ModuleActivationContext&) = delete;
  ModuleActivationContext& operator=(const ModuleActivationContext&) = delete;

  bool valid() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE handle() const noexcept { return handle_; }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

const ModuleActivationContext& ActivationContext() noexcept {
  static const ModuleActivationContext context;
  return context;
}

}  // namespace

void ModuleLock::Add() noexcept {
  lock_count.fetch_add(1, std::memory_order_relaxed);
}

void ModuleLock::Release() noexcept {
  lock_count.fetch_sub(1, std::memory_order_acq_rel);
}

long ModuleLock::Count() noexcept {
  return lock_count.load(std::memory_order_acquire);
}

HINSTANCE ModuleInstance() noexcept {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ModuleInstance), &module);
  return module;
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(ModuleInstance(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ModuleStateScope::ModuleStateScope() noexcept : previous_resources_(resource_module) {
  // Inside another scope of this thread nothing is left to switch.
  static const HINSTANCE self = ModuleInstance();
  if (resource_module == self) {
    return;
  }
  resource_module = self;
  const ModuleActivationContext& context = ActivationContext();
  activated_ = context.valid() && ActivateActCtx(context.handle(), &cookie_) != FALSE;
}

ModuleStateScope::~ModuleStateScope() {
  if (activated_) {
    DeactivateActCtx(0, cookie_);
  }
  resource_module = previous_resources_;
}

HINSTANCE ModuleStateScope::ResourceModule() noexcept {
  return resource_module;
}

}  // namespace kzcef
