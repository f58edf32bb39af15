// Handles window messages while something is waited for, and posts a message
// of its own for what other threads want done.

#include "ui/message_pump.h"

#include <algorithm>
#include <utility>

namespace kzhost {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kAskAgain{20};
constexpr UINT kMailArrived = WM_APP + 1;

// Stops after a while: messages may come as fast as they are handled.
void HandlePendingMessages() {
  const auto end = steady_clock::now() + kAskAgain;
  MSG message;
  while (steady_clock::now() < end && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    HWND root = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    // Tab and Enter in the address bar.
    if (!root || !IsDialogMessageW(root, &message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

}  // namespace

bool PumpUntil(const std::function<bool()>& done, milliseconds timeout) {
  const auto end = steady_clock::now() + timeout;
  for (;;) {
    HandlePendingMessages();
    if (done()) {
      return true;
    }
    const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now());
    if (left.count() <= 0) {
      return false;
    }
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(std::min(left, kAskAgain).count()),
                                QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

Mailbox::Mailbox(std::function<void()> on_mail) : on_mail_(std::move(on_mail)) {
  WNDCLASSW window_class = {};
  window_class.lpfnWndProc = &Mailbox::OnMessage;
  window_class.hInstance = GetModuleHandleW(nullptr);
  window_class.lpszClassName = L"KzHostMailbox";
  RegisterClassW(&window_class);
  window_ = CreateWindowExW(0, window_class.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE,
                            nullptr, window_class.hInstance, nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Mailbox::~Mailbox() {
  DestroyWindow(window_);
}

void Mailbox::Post() {
  if (!is_waiting_.exchange(true) && !PostMessageW(window_, kMailArrived, 0, 0)) {
    is_waiting_ = false;
  }
}

LRESULT CALLBACK Mailbox::OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* mailbox = reinterpret_cast<Mailbox*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == kMailArrived && mailbox) {
    // Before it is looked at: what comes from now on may be missed.
    mailbox->is_waiting_ = false;
    mailbox->on_mail_();
    return 0;
  }
  return DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace kzhost
