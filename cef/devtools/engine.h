#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "devtools/browser_core.h"
#include "devtools/engine_process.h"
#include "devtools/protocol_connection.h"
#include "devtools/refused_pages.h"
#include "include/cef_app.h"

namespace cefedition {

class DownloadPages;
class Downloads;

/// What runs between CefInitialize and CefShutdown: the browser process, the connection to it, and
/// the browsers.
class Engine : public std::enable_shared_from_this<Engine> {
 public:
  /// The running engine; null before CefInitialize has succeeded and after CefShutdown.
  static std::shared_ptr<Engine> Get();

  /// Starts the browser process and connects to it, on the engine's threads, which run already.
  /// Null when that fails or takes too long; `error` says why.
  static std::shared_ptr<Engine> Start(const CefSettings& settings,
                                       CefRefPtr<CefApp> app,
                                       std::string& error);
  static void SetCurrent(std::shared_ptr<Engine> engine);

  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  /// Closes all browsers, then the browser process; ends it by force if it does not close in time.
  /// Not on one of the engine's threads.
  void Stop();

  // Any thread.

  CefRefPtr<CefApp> app() const { return app_; }
  std::weak_ptr<ProtocolConnection> connection() const;
  /// False once the browser process is gone.
  bool IsAlive() const { return alive_; }
  /// The browser process's id on the Unix side.
  int unix_pid() const { return process_->unix_pid(); }
  std::wstring cache_path() const { return cache_path_; }
  void Send(const std::string& session,
            const std::string& method,
            Json params,
            ProtocolConnection::ReplyHandler handler = {});
  /// The user agent text for pages, with the host's choices in it.
  std::string user_agent() const { return user_agent_; }
  /// The languages that pages are told, as in "Accept-Language".
  std::string accept_languages() const;
  void SetAcceptLanguages(const std::string& languages);

  /// Which page's requests a session reports; null for no longer any.
  void RouteRequests(const std::string& session_id, std::shared_ptr<ResourceRequests> requests);

  // UI thread.

  /// All cookies of the store, longest paths first; an empty list when the browser does not say.
  void FetchCookies(std::function<void(const Json& cookies)> done);
  /// Makes the cookies safe against the browser's end, however it ends.
  void FlushCookies(std::function<void()> done);

  /// Null when the window cannot be created or the browser process is gone.
  CefRefPtr<CefBrowser> CreateBrowser(const BrowserSpec& spec);
  /// Makes a browser of a page that another page has opened.
  bool AdoptPopup(const BrowserSpec& spec,
                  const std::string& target_id,
                  const std::string& session_id);
  void CloseTarget(const std::string& target_id);
  /// Opens a page that belongs to no browser and waits to be set going. `done` is not called when
  /// that fails.
  void OpenUnseenPage(
      std::function<void(const std::string& target_id, const std::string& session_id)> done);
  DownloadPages& download_pages() { return *download_pages_; }
  /// Closes a page that waits for its first load, without letting it load. `loads` says whether it
  /// is about to request something.
  void RefusePopup(const std::string& target_id, const std::string& session_id, bool loads);
  /// Opens a second session to a page; `done` hears its id, empty on failure.
  void AttachClientSession(const std::string& target_id,
                           std::function<void(const std::string& session_id)> done);
  void OnBrowserCreated(std::shared_ptr<BrowserCore> browser);
  void OnBrowserClosed(int id);
  std::vector<std::shared_ptr<BrowserCore>> Browsers() const;

 private:
  Engine();
  bool Launch(const CefSettings& settings, std::string& error);
  bool Connect(std::string& error);
  /// Gives the browser the cookies that it lost with its last end.
  void BringBackCookies(std::function<void()> done);
  /// The cookies before the browser closes; nothing when it does not tell in time.
  std::optional<Json> CookiesAtTheEnd();
  /// Keeps what the browser, which has ended, did not; `cleanly` says that its database is whole.
  void KeepCookiesAtTheEnd(const std::optional<Json>& cookies, bool cleanly);

  bool TakeEarly(const ProtocolEvent& event);
  void OnEvent(const ProtocolEvent& event);
  void OnConnectionClosed();
  void OnTargetCreated(const std::shared_ptr<BrowserCore>& core, const ProtocolReply& reply);
  void OnAttached(const Json& params);
  void OnDetached(const Json& params);
  void OnDownloadWillBegin(const Json& params);
  std::shared_ptr<BrowserCore> FindByTarget(const std::string& target_id) const;

  CefRefPtr<CefApp> app_;
  std::wstring cache_path_;
  bool cache_is_temporary_ = false;
  bool keeps_session_cookies_ = false;
  std::string user_agent_product_;
  bool user_agent_given_ = false;
  std::string user_agent_;
  mutable std::mutex lock_;
  std::string accept_languages_;
  std::map<std::string, std::shared_ptr<ResourceRequests>> request_routes_;

  std::unique_ptr<EngineProcess> process_;
  /// Any thread may send while `Stop` lets go of the connection.
  mutable std::mutex connection_lock_;
  std::shared_ptr<ProtocolConnection> connection_;
  std::atomic<bool> alive_{false};
  std::atomic<bool> stopping_{false};

  // UI thread.
  int last_browser_id_ = 0;
  std::map<int, std::shared_ptr<BrowserCore>> browsers_;
  /// Sessions of pages that wait for the answer that says whose they are, by target.
  std::map<std::string, std::string> unclaimed_sessions_;
  RefusedPages refused_pages_;
  const std::unique_ptr<DownloadPages> download_pages_;
  /// Null when there is no place for them: nothing is downloaded then.
  std::shared_ptr<Downloads> downloads_;
};

}  // namespace cefedition
