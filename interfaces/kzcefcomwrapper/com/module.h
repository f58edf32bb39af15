// The loaded DLL as COM sees it: its lock count, its path, its resources and activation context.
#pragma once

#include <windows.h>

#include <string>

namespace kzcef {

// Counts what keeps the DLL loaded: live objects and LockServer. Interlocked, any thread.
class ModuleLock {
 public:
  static void Add() noexcept;
  static void Release() noexcept;
  static long Count() noexcept;
};

// Returns the module that this code is linked into: the DLL, or a test program.
HINSTANCE ModuleInstance() noexcept;

// Returns the full path of that module, of any length. Empty when the system does not supply it.
std::wstring ModulePath();

// The switch to the DLL's own state that COM members and exports make on entry (member.h): inside
// it the DLL's manifest is the active activation context and the DLL is the module that resources
// come from; both are restored on every way out. Scopes nest. Each belongs to the thread that made
// it and must end there.
class ModuleStateScope {
 public:
  ModuleStateScope() noexcept;
  ~ModuleStateScope();
  ModuleStateScope(const ModuleStateScope&) = delete;
  ModuleStateScope& operator=(const ModuleStateScope&) = delete;

  // Returns the module that dialogs and strings are loaded from: the DLL inside a scope, the host's
  // executable outside.
  static HINSTANCE ResourceModule() noexcept;

 private:
  HINSTANCE previous_resources_;
  ULONG_PTR cookie_ = 0;
  bool activated_ = false;
};

}  // namespace kzcef
