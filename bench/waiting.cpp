// Waits for events while window messages are handled, and makes windows and folders for one run.

#include "waiting.h"

#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace kzbench {
namespace {

constexpr DWORD kPatienceMilliseconds = 30'000;
constexpr wchar_t kClassName[] = L"KzBenchHost";

}  // namespace

UniqueHandle MakeEvent(const wchar_t* name) {
  UniqueHandle event(CreateEventW(nullptr, FALSE, FALSE, name));
  if (!event)
    throw std::runtime_error("cannot create an event");
  return event;
}

void AwaitEvent(HANDLE event, const char* what) {
  const ULONGLONG end = GetTickCount64() + kPatienceMilliseconds;
  for (;;) {
    const ULONGLONG now = GetTickCount64();
    if (now >= end)
      throw std::runtime_error(std::string("waited in vain for ") + what);
    const DWORD woken =
        MsgWaitForMultipleObjects(1, &event, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    if (woken == WAIT_OBJECT_0)
      return;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
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
