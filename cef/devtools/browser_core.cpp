#include "devtools/browser_core.h"

#include <cmath>

#include "devtools/context_menus.h"
#include "devtools/edition_browser.h"
#include "devtools/edition_host.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/input_queue.h"
#include "devtools/inspector.h"
#include "devtools/resource_requests.h"

namespace cefedition {
namespace {

// How long a page may take over its own closing before it is closed by force.
constexpr std::chrono::milliseconds kPageCloseTimeout{3000};

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
