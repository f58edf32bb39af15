// One browser of the host: its window, its object of the server and its handler.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <cstdint>
#include <memory>
#include <string>

#include "com/automation_calls.h"
#include "portable/answer_table.h"
#include "portable/notification_log.h"
#include "ui/browser_window.h"

namespace kzhost {

// Used on the user-interface thread. Called in this order: Open, any number of other members,
// Close.
class BrowserSession final : private BrowserWindow::Delegate {
 public:
  // `calls`, `application` and `log` outlive the session; `information` is the type information of
  // the handler's interface.
  BrowserSession(std::string name,
                 AutomationCalls& calls,
                 IDispatch* application,
                 std::shared_ptr<NotificationLog> log,
                 Microsoft::WRL::ComPtr<ITypeInfo> information);

  // Opens the window, obtains the browser object and registers the handler. The browser has the URL
  // but is not started. Returns S_FALSE when the server has no engine; the browser object then does
  // nothing.
  HRESULT Open(int view_width, int view_height, bool is_main, const std::wstring& url);

  // Creates the engine's browser in the view.
  HRESULT Start();

  // Unregisters the handler and destroys the window, with which the engine's browser closes; waits
  // for that, at most ten seconds, and releases the browser object.
  void Close();

  // Lists what has arrived since the last time and brings the address bar up to date.
  void ShowNews();

  const std::string& name() const { return name_; }
  IDispatch* browser() const { return browser_.Get(); }
  IDispatch* handler() const { return handler_.Get(); }
  BrowserWindow* window() const { return window_.get(); }
  AnswerTable& answers() { return *answers_; }
  bool close_requested() const { return close_requested_; }

  // Returns the engine's window in the view; null before the browser is created and after it is
  // closed.
  HWND EngineWindow() const;

  // The number of the notification at which the next wait begins to look.
  std::uint64_t cursor = 0;

 private:
  void OnGo(const std::wstring& address) override;
  void OnRefresh() override;
  void OnViewResized(int width, int height) override;
  void OnCloseRequested() override { close_requested_ = true; }
  void OnServerMessage(WPARAM wparam, LPARAM lparam) override;

  const std::string name_;
  AutomationCalls& calls_;
  IDispatch* const application_;
  const std::shared_ptr<NotificationLog> log_;
  const Microsoft::WRL::ComPtr<ITypeInfo> information_;
  const std::shared_ptr<AnswerTable> answers_ = std::make_shared<AnswerTable>();
  Microsoft::WRL::ComPtr<IDispatch> handler_;
  Microsoft::WRL::ComPtr<IDispatch> browser_;
  std::unique_ptr<BrowserWindow> window_;
  std::uint64_t shown_ = 0;
  bool close_requested_ = false;
};

}  // namespace kzhost
