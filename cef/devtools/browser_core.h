#pragma once

#include <windows.h>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "devtools/devtools_access.h"
#include "devtools/download_sources.h"
#include "devtools/frame_tree.h"
#include "devtools/load_tracker.h"
#include "devtools/page_queries.h"
#include "devtools/page_session.h"
#include "devtools/page_view.h"
#include "devtools/popup_requests.h"
#include "devtools/script_contexts.h"
#include "include/cef_client.h"
#include "include/cef_request_context.h"

namespace cefedition {

class ContextMenus;
class EditionBrowser;
class EditionHost;
class Engine;
class InputQueue;
class Inspector;
class ResourceRequests;

/// What a browser is made from.
struct BrowserSpec {
  CefWindowInfo window_info;
  CefRefPtr<CefClient> client;
  std::string url;
  CefBrowserSettings settings;
  CefRefPtr<CefRequestContext> request_context;
  /// A popup's opener; null for a browser that the host asked for.
  std::shared_ptr<class BrowserCore> opener;
  /// Of a DevTools window: whose page it inspects. Null for any other browser.
  std::shared_ptr<class BrowserCore> inspected;
};

/// One browser: the page behind it, the window before it, and the way from the protocol's events to
/// the client's callbacks. Unless said otherwise, everything runs on the UI thread.
///
/// The objects that the client holds (`CefBrowser`, `CefBrowserHost`, `CefFrame`) lead here. The
/// engine keeps the core until the browser is closed; what remains afterwards answers, but does
/// nothing.
class BrowserCore : public std::enable_shared_from_this<BrowserCore>,
                    private LoadTracker::Delegate,
                    private PageView::Delegate {
 public:
  /// What is answered on any thread without asking the browser.
  struct State {
    bool valid = true;
    bool loading = false;
    bool can_go_back = false;
    bool can_go_forward = false;
    bool has_document = false;
    bool focused = false;
    bool fullscreen = false;
    bool has_devtools = false;
    HWND window = nullptr;
    double zoom_level = 0;
  };

  /// Makes the browser with its window and calls `OnAfterCreated`. The page follows: what is asked
  /// of it until then waits. Null when the window cannot be created.
  static std::shared_ptr<BrowserCore> Create(Engine& engine, int id, const BrowserSpec& spec);

  ~BrowserCore();
  BrowserCore(const BrowserCore&) = delete;
  BrowserCore& operator=(const BrowserCore&) = delete;

  // Any thread.

  int id() const { return id_; }
  bool is_popup() const { return is_popup_; }
  HWND opener_window() const { return opener_window_; }
  CefRefPtr<CefClient> client() const { return client_; }
  CefRefPtr<CefRequestContext> request_context() const { return request_context_; }
  State state() const;
  FrameTree& frames() { return *frames_; }
  PageSession& session() { return session_; }
  DevToolsAccess& devtools() { return devtools_; }
  PageView& view() { return view_; }
  /// A request of a document was answered by a handler of the client's. Any thread.
  void OnDocumentServed(const std::string& frame_id, int http_status);
  /// The client's objects.
  CefRefPtr<CefBrowser> browser() const;
  CefRefPtr<CefBrowserHost> host() const;

  /// Runs `task` on the UI thread unless the browser is closed by then.
  void Post(std::function<void(BrowserCore&)> task);

  void LoadUrl(CefRefPtr<EditionFrame> frame, const std::string& url, const std::string& referrer);
  /// `offset` entries on (positive) or back in the history.
  void GoInHistory(int offset);
  void Reload(bool ignore_cache);
  void StopLoad();
  /// Runs script in a frame; errors arrive as console messages.
  void Evaluate(CefRefPtr<EditionFrame> frame,
                const std::string& code,
                const std::string& script_url,
                int start_line);
  void Close(bool force);
  void SetZoomLevel(double level);
  /// Gives the window the keyboard unless the client refuses.
  void TakeFocus();
  /// Opens a DevTools window for the page, or brings the one there is to the front. `spec` says
  /// what it is made from; with a point in it (CSS pixels of the view), the node there is chosen.
  void ShowDevTools(const BrowserSpec& spec, std::optional<CefPoint> inspect_at);
  void CloseDevTools();

  // UI thread.

  Engine& engine() { return engine_; }
  const std::string& target_id() const { return target_id_; }
  const ScriptContexts& script_contexts() const { return script_contexts_; }
  PageQueries& queries() { return queries_; }
  InputQueue& input() { return *input_; }
  ContextMenus& menus() { return *menus_; }
  /// The main frame's title, as last reported.
  const std::string& title() const { return title_; }

  /// The browser has opened the page.
  void AttachPage(const std::string& target_id, const std::string& session_id);
  /// An event of the page's session.
  void OnEvent(const ProtocolEvent& event);
  /// Runs `task` after all events that have arrived so far.
  void Enqueue(std::function<void()> task);
  /// A page that this one has opened waits for the client's decision.
  void OnPopupPage(const Json& target_info, const std::string& session_id);
  /// What a frame has asked for is a download. Answers what is known of it.
  DownloadSource OnDownloadBegins(const std::string& frame_id, const std::string& url);
  /// Requests of this URL fail for their server's certificate, which was refused.
  void OnCertificateRefused(const std::string& url, cef_errorcode_t error);
  /// The page closed itself, or was never opened.
  void OnPageGone();
  void OnPageCrashed(const std::string& status);
  /// Closes at once: destroys the window and calls `OnBeforeClose`. Asks nobody.
  void CloseNow();
  /// A DevTools window of this page is there, or (null) is gone.
  void SetDevToolsWindow(const std::shared_ptr<BrowserCore>& window);
  /// Takes what the page says to a DevTools window that inspects it; false for other events.
  bool TakeInspectorEvent(const ProtocolEvent& event);
  /// Changes what the page is told of the user's languages.
  void ApplyUserAgent();

 private:
  BrowserCore(Engine& engine, int id, const BrowserSpec& spec);
  bool Init(const BrowserSpec& spec);

  // Events, in the order of arrival; held back while an answer is awaited that an event needs.
  void RunInbox();
  Json UserAgentParams() const;
  void Dispatch(const ProtocolEvent& event);
  /// Asks for the history and holds all events until it is known, then runs `then`.
  void WithHistory(std::function<void()> then);
  void GoInHistoryNow(int offset, int attempts);
  void RequestHistory(std::function<void()> then, int attempts);
  void OnHistoryReply(const ProtocolReply& reply, const std::function<void()>& then, int attempts);
  void OnHistory(const Json& history);

  /// The commands that have the page report what the protocol does not tell.
  std::vector<std::pair<std::string, Json>> ReportCommands() const;
  void EnableInterception(const PageSession::Sender& send);
  void OnPageSetUp(const Json& tree);
  void OpenPageIfReady();
  void OnFrameNavigated(const Json& params);
  void OnWithinDocument(const Json& params);
  void OnFrameStartedNavigating(const Json& params);
  void OnRequestPaused(const Json& params);
  /// Asks whether a document may be requested. False when it was refused, and the request failed.
  bool AskAboutDocument(const Json& params);
  void OnContextCreated(const Json& params);
  void OnConsole(const std::string& method, const Json& params);
  void OnEvaluated(const Json& value);
  void ReportConsole(const struct ConsoleMessage& message);
  void OnPageReport(const Json& params);
  void OnBindingCalled(const Json& params);
  void OnFocused();

  void LoadUrlNow(CefRefPtr<EditionFrame> frame,
                  const std::string& url,
                  const std::string& referrer);
  void CloseAfterAsking(bool force);
  void CloseDevToolsNow();

  template <typename Change>
  void ChangeState(Change change) {
    std::lock_guard hold(state_lock_);
    change(state_);
  }

  // LoadTracker::Delegate.
  void OnLoadingChanged(bool loading) override;
  bool OnNavigationStarting(const NavigationRequest& request) override;
  void OnDocumentStarted(const std::string& frame_id, uint32_t transition) override;
  void OnUrlChanged(const std::string& frame_id, const std::string& url) override;
  void OnDocumentEnded(const std::string& frame_id, int http_status) override;
  void OnLoadFailed(const std::string& frame_id,
                    cef_errorcode_t error,
                    const std::string& url) override;
  bool HadRecentInput() const override;

  // PageView::Delegate.
  void OnViewCloseRequested() override;
  void OnViewDestroyed() override;
  void OnViewFocus(bool focused) override;
  void OnViewInput(const InputCommand& command) override;
  void OnViewKey(const KeyPress& key) override;

  CefRefPtr<CefFrame> FrameFor(const std::string& frame_id);

  Engine& engine_;
  const int id_;
  const bool is_popup_;
  /// Made by another page, which has its first document under way.
  const bool adopted_;
  const HWND opener_window_;
  const CefRefPtr<CefClient> client_;
  const CefRefPtr<CefRequestContext> request_context_;

  mutable std::mutex state_lock_;
  State state_;
  CefRefPtr<EditionBrowser> browser_;
  CefRefPtr<EditionHost> host_;

  PageSession session_;
  std::unique_ptr<FrameTree> frames_;
  LoadTracker loads_;
  PageView view_;
  PopupRequests popups_;
  ScriptContexts script_contexts_;
  PageQueries queries_;
  const std::unique_ptr<InputQueue> input_;
  const std::unique_ptr<ContextMenus> menus_;
  DevToolsAccess devtools_;
  DownloadSources download_sources_;
  /// Null unless this is a DevTools window.
  std::unique_ptr<Inspector> inspector_;
  /// The DevTools window of this page, if there is one.
  std::weak_ptr<BrowserCore> devtools_window_;
  /// Null while no request is halted for the client.
  std::shared_ptr<ResourceRequests> requests_;

  std::string target_id_;
  std::deque<std::function<void()>> inbox_;
  bool inbox_held_ = false;
  bool inbox_running_ = false;
  bool page_set_up_ = false;
  bool first_document_over_ = false;
  /// The page takes commands.
  bool page_open_ = false;
  /// What the host has asked to load before that.
  std::vector<std::function<void(BrowserCore&)>> first_loads_;
  /// The main frame's present document, by the protocol's id.
  std::string committed_loader_;
  bool history_reset_ = false;
  /// Entries at the start of the history that are none of the host's.
  int hidden_entries_ = 0;
  /// The client has agreed to the closing, which the page may still refuse.
  bool closing_ = false;
  bool dialog_open_ = false;
  bool closed_ = false;
  /// The client has already agreed to the focus that is about to come.
  bool focus_granted_ = false;
  std::string title_;
  /// What the navigation under way sends, for `OnBeforeBrowse`.
  const Json* paused_request_ = nullptr;
  /// How the navigation came about that was asked about last.
  uint32_t last_transition_ = TT_LINK;
  std::chrono::steady_clock::time_point last_input_;
};

}  // namespace cefedition
