#include "devtools/browser_core.h"

#include <cmath>

#include "devtools/certificate_errors.h"
#include "devtools/console_message.h"
#include "devtools/context_menus.h"
#include "devtools/dialogs.h"
#include "devtools/draggable_regions.h"
#include "devtools/edition_browser.h"
#include "devtools/edition_host.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/focus_report.h"
#include "devtools/input_queue.h"
#include "devtools/inspector.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "devtools/page_report.h"
#include "devtools/resource_requests.h"

namespace cefedition {
namespace {

// How long a page may take over its own closing before it is closed by force.
constexpr std::chrono::milliseconds kPageCloseTimeout{3000};

// How long a new page's empty document may take to be announced as loaded.
constexpr std::chrono::milliseconds kFirstDocumentTimeout{1000};

// What one zoom level means, as in Chromium.
constexpr double kZoomFactor = 1.2;

HWND OpenerWindow(const BrowserSpec& spec) {
  const std::shared_ptr<BrowserCore>& opener = spec.opener ? spec.opener : spec.inspected;
  return opener ? opener->state().window : nullptr;
}

}  // namespace

std::shared_ptr<BrowserCore> BrowserCore::Create(Engine& engine, int id, const BrowserSpec& spec) {
  std::shared_ptr<BrowserCore> core(new BrowserCore(engine, id, spec));
  return core->Init(spec) ? core : nullptr;
}

BrowserCore::BrowserCore(Engine& engine, int id, const BrowserSpec& spec)
    : engine_(engine),
      id_(id),
      is_popup_(spec.opener || spec.inspected),
      adopted_(spec.opener != nullptr),
      opener_window_(OpenerWindow(spec)),
      client_(spec.client),
      request_context_(spec.request_context),
      session_(engine.connection()),
      loads_(this),
      view_(session_, this),
      popups_(*this),
      queries_(*this),
      input_(std::make_unique<InputQueue>(*this)),
      menus_(std::make_unique<ContextMenus>(*this)),
      devtools_(*this) {}

BrowserCore::~BrowserCore() = default;

bool BrowserCore::Init(const BrowserSpec& spec) {
  frames_ = std::make_unique<FrameTree>(weak_from_this());
  browser_ = new EditionBrowser(shared_from_this());
  host_ = new EditionHost(shared_from_this());
  if (!view_.Create(spec.window_info)) {
    frames_->Clear();
    browser_ = nullptr;
    host_ = nullptr;
    return false;
  }
  ChangeState([&](State& state) { state.window = view_.hwnd(); });
  engine_.OnBrowserCreated(shared_from_this());
  if (spec.inspected) {
    inspector_ = std::make_unique<Inspector>(*this, spec.inspected);
    spec.inspected->SetDevToolsWindow(shared_from_this());
  }
  if (const auto handler = client_ ? client_->GetLifeSpanHandler() : nullptr) {
    handler->OnAfterCreated(browser_);
  }
  if (!adopted_ && !spec.url.empty()) {
    LoadUrl(frames_->main(), spec.url, {});
  }
  return true;
}

BrowserCore::State BrowserCore::state() const {
  std::lock_guard hold(state_lock_);
  return state_;
}

CefRefPtr<CefBrowser> BrowserCore::browser() const {
  std::lock_guard hold(state_lock_);
  return browser_;
}

CefRefPtr<CefBrowserHost> BrowserCore::host() const {
  std::lock_guard hold(state_lock_);
  return host_;
}

void BrowserCore::Post(std::function<void(BrowserCore&)> task) {
  PostToUi([self = shared_from_this(), task = std::move(task)] {
    if (!self->closed_) {
      task(*self);
    }
  });
}

void BrowserCore::AttachPage(const std::string& target_id, const std::string& session_id) {
  // A page's first main frame bears the page's id.
  target_id_ = target_id;
  frames_->SetMainId(target_id);
  // A page made to order has an empty document, which is no load that anybody asked for and no
  // place to go back to. A popup loads at once what it was opened for.
  first_document_over_ = adopted_;
  history_reset_ = adopted_;
  if (adopted_) {
    loads_.ExpectTransition(target_id, TT_LINK);
  }
  requests_ = ResourceRequests::Create(*this);
  engine_.RouteRequests(session_id, requests_);
  session_.Attach(session_id, [this](const PageSession::Sender& send) {
    send("Page.enable", Json::object(), {});
    send("Runtime.enable", Json::object(), {});
    send("Log.enable", Json::object(), {});
    for (const auto& [method, params] : ReportCommands()) {
      send(method, params, {});
    }
    send("Emulation.setUserAgentOverride", UserAgentParams(), {});
    for (const auto& [method, params] : CertificateErrorCommands(*this)) {
      send(method, params, {});
    }
    EnableInterception(send);
    // Its answer comes once the page has taken all of the above.
    send("Page.getFrameTree", Json::object(),
         [weak = weak_from_this()](const ProtocolReply& reply) {
           if (const auto core = weak.lock()) {
             core->Enqueue([core, tree = reply.value] { core->OnPageSetUp(tree); });
           }
         });
    send("Runtime.runIfWaitingForDebugger", Json::object(), {});
  });
  view_.StartPainting();
  devtools_.OnPageReady();
  if (const std::shared_ptr<BrowserCore> window = devtools_window_.lock()) {
    window->inspector_->OnPageReady();
  }
}

std::vector<std::pair<std::string, Json>> BrowserCore::ReportCommands() const {
  std::vector<std::pair<std::string, Json>> all;
  for (const auto& commands : {PageReportCommands(), queries_.Commands(), FocusReportCommands(),
                               ContextMenuReportCommands()}) {
    all.insert(all.end(), commands.begin(), commands.end());
  }
  if (client_ && client_->GetDragHandler()) {
    const auto commands = DraggableRegionsCommands();
    all.insert(all.end(), commands.begin(), commands.end());
  }
  if (inspector_) {
    const auto commands = inspector_->Commands();
    all.insert(all.end(), commands.begin(), commands.end());
  }
  return all;
}

void BrowserCore::EnableInterception(const PageSession::Sender& send) {
  Json document = {{"resourceType", "Document"}, {"requestStage", "Request"}};
  if (!requests_) {
    // Requests of navigations only; sub-resources pass without a halt.
    Json answer = document;
    answer["requestStage"] = "Response";
    send("Fetch.enable", {{"patterns", Json::array({document, answer})}}, {});
    return;
  }
  // Only the ends of requests are of interest, not what they brought.
  send("Network.enable", {{"maxTotalBufferSize", 0}, {"maxResourceBufferSize", 0}}, {});
  // Whether a request is halted again with its response is decided for each.
  send("Fetch.enable",
       {{"patterns", Json::array({{{"urlPattern", "*"}, {"requestStage", "Request"}}})},
        {"handleAuthRequests", true}},
       {});
}

void BrowserCore::OnPageSetUp(const Json& tree) {
  page_set_up_ = true;
  const Json& frame = Field(Field(tree, "frameTree"), "frame");
  const std::string url = TextField(frame, "url");
  if (adopted_ && committed_loader_.empty() && url != "about:blank" && !url.empty()) {
    // The popup was faster than its setting up, and its first document went unnoticed.
    OnFrameNavigated({{"frame", frame}});
  }
  OpenPageIfReady();
  if (!first_document_over_) {
    // The end of the empty document is announced before or soon after this, but not promised.
    if (const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI)) {
      ui->PostDelayed(
          [weak = weak_from_this()] {
            if (const auto core = weak.lock(); core && !core->first_document_over_) {
              core->first_document_over_ = true;
              core->OpenPageIfReady();
            }
          },
          kFirstDocumentTimeout);
    }
  }
}

void BrowserCore::OpenPageIfReady() {
  if (page_open_ || !page_set_up_ || !first_document_over_) {
    return;
  }
  page_open_ = true;
  session_.Open();
  for (const auto& load : std::exchange(first_loads_, {})) {
    load(*this);
  }
}

Json BrowserCore::UserAgentParams() const {
  return {{"userAgent", engine_.user_agent()}, {"acceptLanguage", engine_.accept_languages()}};
}

void BrowserCore::ApplyUserAgent() {
  // A page that is not there yet gets the newest when it comes.
  session_.SendAtOnce("Emulation.setUserAgentOverride", UserAgentParams());
}

void BrowserCore::OnEvent(const ProtocolEvent& event) {
  Enqueue([this, event] { Dispatch(event); });
}

void BrowserCore::Enqueue(std::function<void()> task) {
  inbox_.push_back(std::move(task));
  RunInbox();
}

void BrowserCore::RunInbox() {
  if (inbox_running_) {
    return;
  }
  const std::shared_ptr<BrowserCore> alive = shared_from_this();
  inbox_running_ = true;
  while (!inbox_held_ && !inbox_.empty() && !closed_) {
    const std::function<void()> task = std::move(inbox_.front());
    inbox_.pop_front();
    task();
  }
  inbox_running_ = false;
}

void BrowserCore::Dispatch(const ProtocolEvent& event) {
  const std::string& method = event.method;
  const Json& params = event.params;
  script_contexts_.OnEvent(event);
  queries_.OnEvent(event);
  if (!first_document_over_) {
    if (method == "Page.frameStoppedLoading") {
      first_document_over_ = true;
      OpenPageIfReady();
    } else if (method == "Runtime.executionContextCreated") {
      OnContextCreated(params);
    }
    return;
  }
  if (method == "Page.screencastFrame") {
    view_.OnFrame(params);
  } else if (method == "Page.frameStartedNavigating") {
    OnFrameStartedNavigating(params);
  } else if (method == "Page.frameRequestedNavigation") {
    loads_.OnRequestedByPage(TextField(params, "frameId"), TextField(params, "reason"),
                             TextField(params, "url"));
  } else if (method == "Page.frameStartedLoading") {
    loads_.OnStartedLoading(TextField(params, "frameId"));
  } else if (method == "Page.frameStoppedLoading") {
    loads_.OnStoppedLoading(TextField(params, "frameId"));
  } else if (method == "Page.frameNavigated") {
    OnFrameNavigated(params);
  } else if (method == "Page.navigatedWithinDocument") {
    OnWithinDocument(params);
  } else if (method == "Page.frameAttached") {
    frames_->Touch(TextField(params, "frameId"), TextField(params, "parentFrameId"));
  } else if (method == "Page.frameDetached") {
    frames_->Remove(TextField(params, "frameId"));
    loads_.OnFrameRemoved(TextField(params, "frameId"));
  } else if (method == "Fetch.requestPaused") {
    OnRequestPaused(params);
  } else if (method == "Runtime.executionContextCreated") {
    OnContextCreated(params);
  } else if (method == "Runtime.consoleAPICalled" || method == "Runtime.exceptionThrown" ||
             method == "Log.entryAdded") {
    OnConsole(method, params);
  } else if (method == "Runtime.bindingCalled") {
    OnBindingCalled(params);
  } else if (method == "Page.javascriptDialogOpening") {
    dialog_open_ = true;
    OnDialogOpening(*this, params);
  } else if (method == "Page.javascriptDialogClosed") {
    dialog_open_ = false;
    // A page that asked whether it may be left, and may not, stays.
    closing_ = closing_ && BoolField(params, "result");
    OnDialogClosed(*this);
  } else if (method == "Security.certificateError") {
    OnCertificateErrorEvent(*this, params);
  } else if (method == "Page.windowOpen") {
    popups_.OnWindowOpen(params);
  }
}

void BrowserCore::OnBindingCalled(const Json& params) {
  OnPageReport(params);
  OnFocusReport(*this, params);
  menus_->OnReport(params);
  OnDraggableRegions(*this, params);
  if (inspector_) {
    inspector_->OnCall(params);
  }
}

void BrowserCore::OnContextCreated(const Json& params) {
  const Json& context = Field(params, "context");
  const Json& data = Field(context, "auxData");
  if (!BoolField(data, "isDefault")) {
    return;
  }
  if (const auto frame = frames_->Find(TextField(data, "frameId"))) {
    frame->SetContext(TextField(context, "uniqueId"));
  }
}

void BrowserCore::OnPopupPage(const Json& target_info, const std::string& session_id) {
  Enqueue([this, target_info, session_id] { popups_.OnPage(target_info, session_id); });
}

void BrowserCore::OnPageGone() {
  if (closed_ || closing_) {
    CloseNow();
    return;
  }
  closing_ = true;
  if (const auto handler = client_ ? client_->GetLifeSpanHandler() : nullptr) {
    handler->DoClose(browser_);
  }
  CloseNow();
}

void BrowserCore::OnPageCrashed(const std::string& status) {
  Enqueue([this, status] {
    Log(LOGSEVERITY_ERROR, "The page process of browser " + std::to_string(id_) + " " + status);
    cef_termination_status_t reason = TS_PROCESS_CRASHED;
    if (status == "killed") {
      reason = TS_PROCESS_WAS_KILLED;
    } else if (status == "oom") {
      reason = TS_PROCESS_OOM;
    } else if (status == "abnormal") {
      reason = TS_ABNORMAL_TERMINATION;
    }
    loads_.OnCrashed();
    queries_.OnCrashed();
    if (requests_) {
      requests_->OnCrashed();
    }
    if (const auto handler = client_ ? client_->GetRequestHandler() : nullptr) {
      handler->OnRenderProcessTerminated(browser_, reason);
    }
  });
}

void BrowserCore::Close(bool force) {
  Post([force](BrowserCore& core) { core.CloseAfterAsking(force); });
}

void BrowserCore::CloseAfterAsking(bool force) {
  if (closing_ && !force) {
    return;
  }
  if (!closing_) {
    const auto handler = client_ ? client_->GetLifeSpanHandler() : nullptr;
    if (handler && handler->DoClose(browser_)) {
      return;
    }
  }
  closing_ = true;
  if (force || session_.id().empty()) {
    CloseNow();
    return;
  }
  // The page may still ask its user whether to leave; until that is answered it stays open.
  session_.Send("Page.close");
  if (const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI)) {
    ui->PostDelayed(
        [weak = weak_from_this()] {
          const auto core = weak.lock();
          if (core && core->closing_ && !core->dialog_open_) {
            core->CloseNow();
          }
        },
        kPageCloseTimeout);
  }
}

void BrowserCore::CloseNow() {
  if (closed_) {
    return;
  }
  const std::shared_ptr<BrowserCore> alive = shared_from_this();
  closed_ = true;
  closing_ = true;
  menus_->End();
  CloseDevToolsNow();
  view_.Destroy();
  if (!session_.id().empty()) {
    engine_.RouteRequests(session_.id(), nullptr);
    engine_.CloseTarget(target_id_);
  }
  session_.Detach();
  devtools_.OnPageGone();
  if (inspector_) {
    inspector_->Close();
  }
  if (requests_) {
    requests_->Close();
  }
  ChangeState([](State& state) {
    state.window = nullptr;
    state.loading = false;
  });
  if (const auto handler = client_ ? client_->GetLifeSpanHandler() : nullptr) {
    handler->OnBeforeClose(browser_);
  }
  frames_->Clear();
  inbox_.clear();
  ChangeState([this](State& state) {
    state.valid = false;
    browser_ = nullptr;
    host_ = nullptr;
  });
  engine_.OnBrowserClosed(id_);
}

void BrowserCore::SetZoomLevel(double level) {
  ChangeState([&](State& state) { state.zoom_level = level; });
  Post([level](BrowserCore& core) { core.view_.SetZoom(std::pow(kZoomFactor, level)); });
}

void BrowserCore::OnViewCloseRequested() {
  Close(/*force=*/false);
}

void BrowserCore::OnViewDestroyed() {
  // Posted, because the window may go in the middle of anything, also of a callback.
  ChangeState([](State& state) { state.window = nullptr; });
  Post([](BrowserCore& core) { core.CloseNow(); });
}

void BrowserCore::OnViewFocus(bool focused) {
  ChangeState([&](State& state) { state.focused = focused; });
  if (focused) {
    Post([](BrowserCore& core) { core.OnFocused(); });
  }
}

void BrowserCore::OnFocused() {
  const auto handler = client_ ? client_->GetFocusHandler() : nullptr;
  const bool granted = std::exchange(focus_granted_, false);
  if (!handler) {
    return;
  }
  if (!granted && handler->OnSetFocus(browser_, FOCUS_SOURCE_SYSTEM)) {
    // The window keeps the keyboard, for nobody says who else is to have it; the page does not.
    ChangeState([](State& state) { state.focused = false; });
    return;
  }
  handler->OnGotFocus(browser_);
}

void BrowserCore::TakeFocus() {
  Post([](BrowserCore& core) {
    const auto handler = core.client_ ? core.client_->GetFocusHandler() : nullptr;
    if (handler && handler->OnSetFocus(core.browser_, FOCUS_SOURCE_SYSTEM)) {
      return;
    }
    core.focus_granted_ = core.view_.hwnd() && GetFocus() != core.view_.hwnd();
    core.view_.SetFocus(true);
  });
}

void BrowserCore::ShowDevTools(const BrowserSpec& spec, std::optional<CefPoint> inspect_at) {
  Post([spec, inspect_at](BrowserCore& core) {
    std::shared_ptr<BrowserCore> window = core.devtools_window_.lock();
    if (window && !window->closed_) {
      window->view_.BringToFront();
    } else {
      BrowserSpec with_page = spec;
      with_page.inspected = core.shared_from_this();
      with_page.url = Inspector::PageUrl();
      if (!core.engine_.CreateBrowser(with_page)) {
        return;
      }
      window = core.devtools_window_.lock();
    }
    if (window && inspect_at) {
      window->inspector_->InspectAt(*inspect_at);
    }
  });
}

void BrowserCore::CloseDevTools() {
  Post([](BrowserCore& core) { core.CloseDevToolsNow(); });
}

void BrowserCore::SetDevToolsWindow(const std::shared_ptr<BrowserCore>& window) {
  devtools_window_ = window;
  ChangeState([&](State& state) { state.has_devtools = window != nullptr; });
}

void BrowserCore::CloseDevToolsNow() {
  if (const std::shared_ptr<BrowserCore> window = devtools_window_.lock()) {
    window->CloseNow();
  }
}

bool BrowserCore::TakeInspectorEvent(const ProtocolEvent& event) {
  return inspector_ && inspector_->TakeEvent(event);
}

void BrowserCore::OnViewInput(const InputCommand& command) {
  if (command.method == "Input.dispatchMouseEvent") {
    last_input_ = std::chrono::steady_clock::now();
  }
  Post([command](BrowserCore& core) { core.input_->Add(command); });
}

void BrowserCore::OnViewKey(const KeyPress& key) {
  last_input_ = std::chrono::steady_clock::now();
  Post([key](BrowserCore& core) { core.input_->AddKey(key); });
}

}  // namespace cefedition
