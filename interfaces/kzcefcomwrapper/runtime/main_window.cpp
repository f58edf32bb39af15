// Looks through the top-level windows at each call: a host may
// make, mark and destroy windows at any time.

#include "runtime/main_window.h"

#include <atomic>

namespace kzcef {
namespace {

// 0 before any thread is known; no thread has that identifier.
std::atomic<DWORD> host_thread{0};

struct Search {
  DWORD process = 0;
  DWORD thread = 0;
  HWND marked = nullptr;
  HWND visible = nullptr;
};

// Called from the topmost window down. Message-only windows are not among those that are listed.
BOOL CALLBACK Look(HWND window, LPARAM argument) {
  auto& search = *reinterpret_cast<Search*>(argument);
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(window, &process);
  if (process != search.process) {
    return TRUE;
  }
  if (GetPropW(window, kMainWindowProperty)) {
    search.marked = window;
    return FALSE;
  }
  if (!search.visible && thread == search.thread && IsWindowVisible(window) &&
      !GetWindow(window, GW_OWNER)) {
    search.visible = window;
  }
  return TRUE;
}

}  // namespace

void UseThisThreadAsTheHosts() noexcept {
  host_thread = GetCurrentThreadId();
}

HWND FindMainWindow() noexcept {
  Search search;
  search.process = GetCurrentProcessId();
  search.thread = host_thread;
  EnumWindows(&Look, reinterpret_cast<LPARAM>(&search));
  return search.marked ? search.marked : search.visible;
}

}  // namespace kzcef
