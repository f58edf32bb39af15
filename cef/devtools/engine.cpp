#include "devtools/engine.h"

#include <algorithm>
#include <filesystem>

#include "devtools/download_pages.h"
#include "devtools/downloads.h"
#include "devtools/engine_command_line.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "devtools/profile_folder.h"
#include "devtools/resource_requests.h"
#include "devtools/unix_host.h"
#include "devtools/wait_signal.h"

namespace cefedition {
namespace {

using namespace std::chrono_literals;

constexpr auto kLaunchTimeout = 10s;
constexpr auto kConnectTimeout = 10s;
constexpr auto kCloseBrowsersTimeout = 3s;
constexpr auto kCloseProcessTimeout = 3s;
// How long a refused page may take to make the request that it was opened for.
constexpr auto kRefusedRequestTimeout = 3s;

std::mutex g_current_lock;

std::shared_ptr<Engine>& Current() {
  static std::shared_ptr<Engine> current;
  return current;
}

}  // namespace

std::shared_ptr<Engine> Engine::Get() {
  std::lock_guard hold(g_current_lock);
  return Current();
}

void Engine::SetCurrent(std::shared_ptr<Engine> engine) {
  std::lock_guard hold(g_current_lock);
  Current().swap(engine);
}

std::shared_ptr<Engine> Engine::Start(const CefSettings& settings,
                                      CefRefPtr<CefApp> app,
                                      std::string& error) {
  std::shared_ptr<Engine> engine(new Engine);
  engine->app_ = app;
  if (!engine->Launch(settings, error) || !engine->Connect(error)) {
    engine->Stop();
    return nullptr;
  }
  return engine;
}

Engine::Engine()
    : refused_pages_([this](const std::string& session, const std::string& method, Json params) {
        Send(session, method, std::move(params));
      }),
      download_pages_(std::make_unique<DownloadPages>(*this)) {}

Engine::~Engine() = default;

bool Engine::Launch(const CefSettings& settings, std::string& error) {
  if (!PrepareProfileFolder(settings, cache_path_, cache_is_temporary_, error)) {
    return false;
  }
  EngineProcess::Launch launch;
  launch.program = FindBrowserProgram(error);
  if (launch.program.empty()) {
    return false;
  }
  user_agent_product_ = CefString(&settings.user_agent_product).ToString();
  user_agent_given_ = settings.user_agent.length > 0;
  accept_languages_ = AcceptLanguagesOf(settings);
  launch.arguments = BuildBrowserArguments(settings, app_, ToUnixPath(cache_path_));
  keeps_session_cookies_ = settings.persist_session_cookies ||
                           std::find(launch.arguments.begin(), launch.arguments.end(),
                                     "--persist-session-cookies") != launch.arguments.end();
  launch.output = ToUnixPath(LogPath());
  Log(LOGSEVERITY_INFO, "Starting the browser " + launch.program);
  process_ = EngineProcess::Start(launch, kLaunchTimeout, error);
  return process_ != nullptr;
}

bool Engine::Connect(std::string& error) {
  const auto answered = std::make_shared<Signal>();
  const auto reply = std::make_shared<ProtocolReply>();
  alive_ = true;
  ProtocolConnection::Handlers handlers;
  handlers.on_event = [weak = weak_from_this()](const ProtocolEvent& event) {
    if (const auto self = weak.lock()) {
      self->OnEvent(event);
    }
  };
  handlers.on_closed = [weak = weak_from_this()] {
    if (const auto self = weak.lock()) {
      self->OnConnectionClosed();
    }
  };
  handlers.take_early = [weak = weak_from_this()](const ProtocolEvent& event) {
    const auto self = weak.lock();
    return self && self->TakeEarly(event);
  };
  auto connection = std::make_shared<ProtocolConnection>(
      process_->TakePipe(), *FindEngineThread(TID_UI), std::move(handlers));
  {
    std::lock_guard hold(connection_lock_);
    connection_ = std::move(connection);
  }
  const Json pages_only = Json::array({{{"type", "page"}}, {{"exclude", true}}});
  Send({}, "Target.setDiscoverTargets", {{"discover", true}, {"filter", pages_only}});
  Send({}, "Target.setAutoAttach",
       {{"autoAttach", true},
        {"waitForDebuggerOnStart", true},
        {"flatten", true},
        {"filter", pages_only}});
  if (const auto folder = DownloadFolder::Create(cache_path_)) {
    downloads_ = std::make_shared<Downloads>(*this, folder);
    downloads_->Begin();
  } else {
    Log(LOGSEVERITY_ERROR, "There is no folder for downloads");
  }
  Send({}, "Browser.getVersion", Json::object(),
       [self = shared_from_this(), answered, reply](const ProtocolReply& version) {
         *reply = version;
         self->BringBackCookies([answered] { answered->Set(); });
       });
  if (!answered->Wait(kConnectTimeout)) {
    error = "the browser did not answer within " + std::to_string(kConnectTimeout.count()) + " s";
    return false;
  }
  if (!reply->ok) {
    process_->WaitForEnd(1s);
    const std::string reason = process_->EndReason();
    error = "the browser " + (reason.empty() ? "refused the connection" : reason);
    return false;
  }
  user_agent_ = ComposeUserAgent(TextField(reply->value, "userAgent"), user_agent_given_,
                                 user_agent_product_);
  Log(LOGSEVERITY_INFO, "Connected to " + TextField(reply->value, "product"));
  return true;
}

void Engine::Stop() {
  stopping_ = true;
  std::optional<Json> cookies;
  if (connection_) {
    const auto closed = std::make_shared<Signal>();
    const bool posted = PostToUi([self = shared_from_this(), closed] {
      for (const auto& browser : self->Browsers()) {
        browser->CloseNow();
      }
      if (self->downloads_) {
        self->downloads_->Stop();
      }
      closed->Set();
    });
    if (posted && !closed->Wait(kCloseBrowsersTimeout)) {
      Log(LOGSEVERITY_ERROR, "The browsers could not be closed in time");
    }
    cookies = CookiesAtTheEnd();
    Send({}, "Browser.close", Json::object());
  }
  if (process_) {
    const bool alive = alive_;
    const bool closed = alive && process_->WaitForEnd(kCloseProcessTimeout);
    if (alive && !closed) {
      Log(LOGSEVERITY_WARNING, "The browser did not close in time and is ended");
    }
    process_->Kill();
    process_->WaitForEnd(kCloseProcessTimeout);
    KeepCookiesAtTheEnd(cookies, closed);
  }
  if (connection_) {
    connection_->Close();
    std::shared_ptr<ProtocolConnection> last;
    std::lock_guard hold(connection_lock_);
    last.swap(connection_);
  }
  process_.reset();
  downloads_.reset();
  if (cache_is_temporary_) {
    RemoveProfileFolder(cache_path_);
  }
}

void Engine::Send(const std::string& session,
                  const std::string& method,
                  Json params,
                  ProtocolConnection::ReplyHandler handler) {
  if (const std::shared_ptr<ProtocolConnection> connection = this->connection().lock()) {
    connection->Send(session, method, std::move(params), std::move(handler));
  }
}

std::weak_ptr<ProtocolConnection> Engine::connection() const {
  std::lock_guard hold(connection_lock_);
  return connection_;
}

std::string Engine::accept_languages() const {
  std::lock_guard hold(lock_);
  return accept_languages_;
}

void Engine::SetAcceptLanguages(const std::string& languages) {
  {
    std::lock_guard hold(lock_);
    accept_languages_ = languages;
  }
  PostToUi([self = shared_from_this()] {
    for (const auto& browser : self->Browsers()) {
      browser->ApplyUserAgent();
    }
  });
}

CefRefPtr<CefBrowser> Engine::CreateBrowser(const BrowserSpec& spec) {
  if (!alive_ || stopping_) {
    return nullptr;
  }
  const int id = ++last_browser_id_;
  const std::shared_ptr<BrowserCore> core = BrowserCore::Create(*this, id, spec);
  if (!core) {
    Log(LOGSEVERITY_ERROR, "A browser's window could not be created");
    return nullptr;
  }
  const SIZE size = core->view().CssSize();
  Send({}, "Target.createTarget",
       {{"url", "about:blank"}, {"newWindow", true}, {"width", size.cx}, {"height", size.cy}},
       [weak = weak_from_this(), core](const ProtocolReply& reply) {
         if (const auto self = weak.lock()) {
           self->OnTargetCreated(core, reply);
         }
       });
  return core->browser();
}

void Engine::OnTargetCreated(const std::shared_ptr<BrowserCore>& core, const ProtocolReply& reply) {
  const std::string target_id = TextField(reply.value, "targetId");
  const auto session = unclaimed_sessions_.find(target_id);
  if (!reply.ok || session == unclaimed_sessions_.end()) {
    Log(LOGSEVERITY_ERROR, "No page could be opened: " + reply.ErrorMessage());
    core->OnPageGone();
    return;
  }
  const std::string session_id = session->second;
  unclaimed_sessions_.erase(session);
  if (!browsers_.contains(core->id())) {
    // Closed while its page was on the way.
    CloseTarget(target_id);
    return;
  }
  core->AttachPage(target_id, session_id);
}

bool Engine::AdoptPopup(const BrowserSpec& spec,
                        const std::string& target_id,
                        const std::string& session_id) {
  if (!alive_ || stopping_) {
    return false;
  }
  const int id = ++last_browser_id_;
  const std::shared_ptr<BrowserCore> core = BrowserCore::Create(*this, id, spec);
  if (!core || !browsers_.contains(id)) {
    return false;
  }
  core->AttachPage(target_id, session_id);
  return true;
}

void Engine::CloseTarget(const std::string& target_id) {
  Send({}, "Target.closeTarget", {{"targetId", target_id}});
}

void Engine::OpenUnseenPage(
    std::function<void(const std::string& target_id, const std::string& session_id)> done) {
  Send({}, "Target.createTarget", {{"url", "about:blank"}, {"background", true}},
       [weak = weak_from_this(), done = std::move(done)](const ProtocolReply& reply) {
         const std::string target_id = TextField(reply.value, "targetId");
         const auto self = weak.lock();
         auto session = self ? self->unclaimed_sessions_.extract(target_id)
                             : decltype(unclaimed_sessions_)::node_type();
         if (session) {
           done(target_id, session.mapped());
         }
       });
}

void Engine::OnDownloadWillBegin(const Json& params) {
  const std::string frame_id = TextField(params, "frameId");
  const std::string url = TextField(params, "url");
  DownloadSource source;
  std::shared_ptr<BrowserCore> core = download_pages_->BrowserOf(frame_id, url, source);
  download_pages_->Close(frame_id);
  for (const auto& browser : Browsers()) {
    if (!core && browser->frames().Find(frame_id)) {
      core = browser;
      source = browser->OnDownloadBegins(frame_id, url);
    }
  }
  downloads_->OnWillBegin(params, core, source);
}

void Engine::RefusePopup(const std::string& target_id, const std::string& session_id, bool loads) {
  refused_pages_.Refuse(target_id, session_id, loads);
  if (const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI); ui && loads) {
    ui->PostDelayed(
        [weak = weak_from_this(), session_id] {
          if (const auto self = weak.lock()) {
            self->refused_pages_.CloseIfOpen(session_id);
          }
        },
        kRefusedRequestTimeout);
  }
}

void Engine::AttachClientSession(const std::string& target_id,
                                 std::function<void(const std::string& session_id)> done) {
  Send({}, "Target.attachToTarget", {{"targetId", target_id}, {"flatten", true}},
       [done = std::move(done)](const ProtocolReply& reply) {
         done(TextField(reply.value, "sessionId"));
       });
}

void Engine::OnBrowserCreated(std::shared_ptr<BrowserCore> browser) {
  const int id = browser->id();
  browsers_[id] = std::move(browser);
}

void Engine::OnBrowserClosed(int id) {
  browsers_.erase(id);
}

std::vector<std::shared_ptr<BrowserCore>> Engine::Browsers() const {
  std::vector<std::shared_ptr<BrowserCore>> all;
  for (const auto& [id, browser] : browsers_) {
    all.push_back(browser);
  }
  return all;
}

std::shared_ptr<BrowserCore> Engine::FindByTarget(const std::string& target_id) const {
  for (const auto& [id, browser] : browsers_) {
    if (!target_id.empty() && browser->target_id() == target_id) {
      return browser;
    }
  }
  return nullptr;
}

void Engine::RouteRequests(const std::string& session_id,
                           std::shared_ptr<ResourceRequests> requests) {
  std::lock_guard hold(lock_);
  if (requests) {
    request_routes_[session_id] = std::move(requests);
  } else {
    request_routes_.erase(session_id);
  }
}

// Requests need not wait until the UI thread has time for them.
bool Engine::TakeEarly(const ProtocolEvent& event) {
  std::shared_ptr<ResourceRequests> requests;
  {
    std::lock_guard hold(lock_);
    const auto found = request_routes_.find(event.session);
    if (found != request_routes_.end()) {
      requests = found->second;
    }
  }
  return requests && requests->TakeEvent(event.method, event.params);
}

void Engine::OnEvent(const ProtocolEvent& event) {
  if (event.session.empty()) {
    if (event.method == "Target.attachedToTarget") {
      OnAttached(event.params);
    } else if (event.method == "Target.detachedFromTarget") {
      OnDetached(event.params);
    } else if (event.method == "Target.targetCrashed") {
      if (const auto browser = FindByTarget(TextField(event.params, "targetId"))) {
        browser->OnPageCrashed(TextField(event.params, "status"));
      }
    } else if (event.method == "Browser.downloadWillBegin" && downloads_) {
      OnDownloadWillBegin(event.params);
    } else if (event.method == "Browser.downloadProgress" && downloads_) {
      downloads_->OnProgress(event.params);
    }
    return;
  }
  if (refused_pages_.OnEvent(event) || download_pages_->OnEvent(event)) {
    return;
  }
  for (const auto& browser : Browsers()) {
    if (browser->session().id() == event.session) {
      browser->OnEvent(event);
      return;
    }
    if (browser->TakeInspectorEvent(event)) {
      return;
    }
    if (browser->devtools().OwnsSession(event.session)) {
      browser->devtools().OnEvent(event);
      return;
    }
  }
}

void Engine::OnAttached(const Json& params) {
  const Json& info = Field(params, "targetInfo");
  const std::string target_id = TextField(info, "targetId");
  const std::string session_id = TextField(params, "sessionId");
  if (FindByTarget(target_id) || !BoolField(params, "waitingForDebugger")) {
    // A second session, which the engine itself asked for.
    return;
  }
  const std::string opener_id = TextField(info, "openerId");
  if (opener_id.empty()) {
    unclaimed_sessions_[target_id] = session_id;
    return;
  }
  const std::shared_ptr<BrowserCore> opener = FindByTarget(opener_id);
  if (!opener || stopping_) {
    RefusePopup(target_id, session_id, /*loads=*/true);
    return;
  }
  opener->OnPopupPage(info, session_id);
}

void Engine::OnDetached(const Json& params) {
  const std::string session_id = TextField(params, "sessionId");
  refused_pages_.OnDetached(session_id);
  for (const auto& browser : Browsers()) {
    if (browser->session().id() == session_id) {
      browser->Enqueue([browser] { browser->OnPageGone(); });
      return;
    }
  }
}

void Engine::OnConnectionClosed() {
  alive_ = false;
  if (stopping_) {
    return;
  }
  process_->WaitForEnd(1s);
  const std::string reason = process_->EndReason();
  Log(LOGSEVERITY_ERROR,
      "The browser process " + (reason.empty() ? "closed its connection" : reason));
  for (const auto& browser : Browsers()) {
    browser->CloseNow();
  }
  if (downloads_) {
    downloads_->Stop();
  }
}

}  // namespace cefedition
