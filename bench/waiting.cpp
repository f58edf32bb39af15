// Waits for events while window messages are handled, and makes windows and folders for one run.

#include "waiting.h"

#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace kzbench {
namespace {

constexpr DWORD kLookAgainMilliseconds = 10;
constexpr wchar_t kClassName[] = L"KzBenchHost";

void TakeMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

UniqueHandle MakeEvent(const wchar_t* name) {
  UniqueHandle event(CreateEventW(nullptr, FALSE, FALSE, name));
  if (!event)
    throw std::runtime_error("cannot create an event");
  return event;
}

void AwaitEvent(HANDLE event, const char* what, const Patience& patience) {
  const HANDLE handles[] = {event, patience.process};
  const DWORD count = patience.process ? 2 : 1;
  const ULONGLONG end = GetTickCount64() + patience.milliseconds;
  for (;;) {
    const ULONGLONG now = GetTickCount64();
    if (now >= end)
      throw std::runtime_error(std::string("waited in vain for ") + what);
    const DWORD woken = MsgWaitForMultipleObjects(count, handles, FALSE,
                                                  static_cast<DWORD>(end - now), QS_ALLINPUT);
    if (woken == WAIT_OBJECT_0)
      return;
    if (woken == WAIT_OBJECT_0 + 1 && patience.process)
      throw std::runtime_error(std::string("a process ended before ") + what);
    TakeMessages();
  }
}

void AwaitTrue(const std::function<bool()>& condition, const char* what) {
  const ULONGLONG end = GetTickCount64() + Patience().milliseconds;
  while (!condition()) {
    if (GetTickCount64() >= end)
      throw std::runtime_error(std::string("waited in vain for ") + what);
    Pump(kLookAgainMilliseconds);
  }
}

void Pump(DWORD milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    TakeMessages();
  }
}

HostWindow::HostWindow() {
  WNDCLASSW info{};
  info.lpfnWndProc = &DefWindowProcW;
  info.hInstance = GetModuleHandleW(nullptr);
  info.lpszClassName = kClassName;
  RegisterClassW(&info);
  // A bare popup needs no window manager.
  hwnd_ = CreateWindowExW(0, kClassName, L"kzbench", WS_POPUP, 0, 0, 800, 600, nullptr, nullptr,
                          info.hInstance, nullptr);
  if (!hwnd_)
    throw std::runtime_error("cannot create a window");
  ShowWindow(hwnd_, SW_SHOWNA);
}

HostWindow::~HostWindow() {
  DestroyWindow(hwnd_);
}

ScratchFolder::ScratchFolder() {
  static std::atomic<int> counter{0};
  path_ =
      (std::filesystem::temp_directory_path() /
       (L"kzbench-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter)))
          .wstring();
  std::filesystem::create_directories(path_);
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace kzbench
