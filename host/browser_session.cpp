// Opens, follows and closes one browser. Closing waits until the engine's window is gone, because
// the engine closes its browser on a thread of its own.

#include "browser_session.h"

#include <chrono>
#include <utility>
#include <vector>

#include "com/browser_handler.h"
#include "com/server.h"
#include "ui/message_pump.h"
#include "wide_text.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::chrono::seconds kGoneTimeout{10};

}  // namespace

BrowserSession::BrowserSession(std::string name,
                               AutomationCalls& calls,
                               IDispatch* application,
                               std::shared_ptr<NotificationLog> log,
                               ComPtr<ITypeInfo> information)
    : name_(std::move(name)),
      calls_(calls),
      application_(application),
      log_(std::move(log)),
      information_(std::move(information)) {}

HRESULT BrowserSession::Open(int view_width,
                             int view_height,
                             bool is_main,
                             const std::wstring& url) {
  HRESULT result = calls_.GetBrowser(application_, &browser_);
  if (FAILED(result)) {
    return result;
  }
  handler_ = MakeBrowserHandler(name_, log_, answers_, information_);
  result = calls_.RegisterHandler(application_, browser_.Get(), handler_.Get());
  if (FAILED(result)) {
    return result;
  }
  window_ =
      BrowserWindow::Create(L"kzhost: " + ToWide(name_), view_width, view_height, is_main, this);
  if (!window_) {
    // Without a display the reason may be missing.
    const DWORD reason = GetLastError();
    return reason == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(reason);
  }
  window_->ShowAddress(url);
  // Before the browser is started there is nothing to load the address into: the server keeps it
  // for the start and says so with S_FALSE.
  result = calls_.PutUrl(browser_.Get(), url);
  if (FAILED(result)) {
    return result;
  }
  // A browser object that was made without an engine says so here, and only here.
  HWND none = nullptr;
  return calls_.GetWindowHandle(browser_.Get(), none);
}

HRESULT BrowserSession::Start() {
  return calls_.StartBrowser(browser_.Get(), window_->view());
}

void BrowserSession::Close() {
  if (browser_ && handler_) {
    calls_.UnregisterHandler(application_, browser_.Get(), handler_.Get());
  }
  // By now the object may return the window of a popup, which stays.
  const HWND engine_window = window_ ? GetWindow(window_->view(), GW_CHILD) : nullptr;
  window_.reset();
  if (engine_window) {
    // The engine learns of it on its own thread; the object knows when that has been dealt with.
    PumpUntil(
        [this, engine_window] {
          return !IsWindow(engine_window) && EngineWindow() != engine_window;
        },
        kGoneTimeout);
  }
  browser_.Reset();
  handler_.Reset();
}

void BrowserSession::ShowNews() {
  if (!window_) {
    return;
  }
  bool address_changed = false;
  std::vector<std::wstring> lines;
  for (const Notification& notification : log_->After(shown_, name_)) {
    shown_ = notification.sequence + 1;
    lines.push_back(ToWide(ToPlainLine(notification)));
    address_changed = address_changed || notification.name == "AddressChangeNotify";
  }
  window_->AppendLines(lines);
  if (address_changed) {
    // The notification comes for frames inside the page too; the object knows the page's address.
    std::wstring url;
    if (SUCCEEDED(calls_.GetUrl(browser_.Get(), url)) && !url.empty()) {
      window_->ShowAddress(url);
    }
  }
}

HWND BrowserSession::EngineWindow() const {
  HWND window = nullptr;
  if (browser_) {
    calls_.GetWindowHandle(browser_.Get(), window);
  }
  return window;
}

void BrowserSession::OnGo(const std::wstring& address) {
  calls_.PutUrl(browser_.Get(), address);
}

void BrowserSession::OnRefresh() {
  calls_.Refresh(browser_.Get(), false);
}

void BrowserSession::OnViewResized(int width, int height) {
  if (browser_) {
    calls_.ResizeBrowser(browser_.Get(), width, height);
  }
}

void BrowserSession::OnServerMessage(WPARAM wparam, LPARAM lparam) {
  Server::HandlePostedMessage(wparam, lparam);
}

}  // namespace kzhost
