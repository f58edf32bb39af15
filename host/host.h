// The host as a whole: the server, its engine and the browsers.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "browser_session.h"
#include "com/automation_calls.h"
#include "com/server.h"
#include "portable/notification_log.h"
#include "portable/options.h"
#include "ui/message_pump.h"

namespace kzhost {

// Used on the user-interface thread, whose apartment is a single-threaded one. Called in this
// order: Activate, StartEngine, OpenBrowser and so on, ShutDown.
class Host {
 public:
  Host(const Options& options, std::shared_ptr<NotificationLog> log);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // Loads the server, names the host to it and obtains a settings object with the cache directory
  // of the options.
  HRESULT Activate();

  // Starts the engine with the settings object. The server returns S_OK even when the engine does
  // not start; whether it runs shows in OpenBrowser.
  HRESULT StartEngine();

  // Opens a window with a browser that has the URL; the first one becomes the main window.
  // Returns S_FALSE when there is no engine. `session` is set unless the call failed.
  HRESULT OpenBrowser(const std::string& name, const std::wstring& url, BrowserSession*& session);

  // Returns null when there is no such browser (any more).
  BrowserSession* FindBrowser(const std::string& name) const;

  // Returns the object called `name`: "app", "settings", the name of a browser, "handler:" and the
  // name of a browser, or a name given to KeepObject. Returns null for any other name.
  IDispatch* FindObject(const std::string& name) const;
  void KeepObject(const std::string& name, Microsoft::WRL::ComPtr<IDispatch> object);

  // Handles messages, and closes windows whose user asked for it, until `done` returns true or
  // `timeout` has passed. Returns what `done` returned last.
  bool WaitUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);

  // Handles messages until the last window is closed.
  void RunUntilClosed();

  // Closes in the order that the server wants: announces it, waits until no notification is under
  // way, unregisters the handlers, destroys windows and releases browsers, stops the engine. A
  // second call does nothing.
  void ShutDown();

  bool has_browsers() const { return !sessions_.empty(); }
  AutomationCalls& calls() { return *calls_; }
  Server& server() { return server_; }
  NotificationLog& log() { return *log_; }
  IDispatch* application() const { return application_.Get(); }
  IDispatch* settings() const { return settings_.Get(); }

 private:
  void CloseRequested();
  void ShowNews();

  const Options options_;
  const std::shared_ptr<NotificationLog> log_;
  Server server_;
  const std::unique_ptr<AutomationCalls> calls_;
  const std::shared_ptr<Mailbox> mailbox_;
  Microsoft::WRL::ComPtr<IDispatch> application_;
  Microsoft::WRL::ComPtr<IDispatch> settings_;
  std::map<std::string, Microsoft::WRL::ComPtr<IDispatch>> kept_objects_;
  std::vector<std::unique_ptr<BrowserSession>> sessions_;
  bool opened_any_ = false;
};

}  // namespace kzhost
