#include "devtools/context_menus.h"

#include <atomic>
#include <utility>

#include "base/menu_model.h"
#include "devtools/browser_core.h"
#include "devtools/engine_threads.h"
#include "devtools/view/popup_menu.h"

namespace cefedition {

/// Given to a client that shows the menu itself. Counts as cancelled when the client lets go of it.
class ContextMenus::RunCallback : public CefRunContextMenuCallback {
 public:
  RunCallback(std::weak_ptr<BrowserCore> core, std::shared_ptr<Menu> menu)
      : core_(std::move(core)), menu_(std::move(menu)) {}
  ~RunCallback() override { Answer(std::nullopt); }

  void Continue(int command_id, cef_event_flags_t event_flags) override {
    Answer(Choice{command_id, event_flags});
  }
  void Cancel() override { Answer(std::nullopt); }
  /// The client does not show the menu.
  void Disarm() { answered_ = true; }

 private:
  void Answer(std::optional<Choice> choice) {
    if (answered_.exchange(true)) {
      return;
    }
    PostToUi([weak = core_, menu = menu_, choice] {
      if (const auto core = weak.lock()) {
        core->menus().Finish(menu, choice);
      }
    });
  }

  const std::weak_ptr<BrowserCore> core_;
  const std::shared_ptr<Menu> menu_;
  std::atomic<bool> answered_{false};

  IMPLEMENT_REFCOUNTING(RunCallback);
};

ContextMenus::ContextMenus(BrowserCore& core) : core_(core) {}

ContextMenus::~ContextMenus() = default;

void ContextMenus::OnReport(const Json& params) {
  ContextMenuReport report;
  if (!ParseContextMenuReport(params, report)) {
    return;
  }
  if (right_button_down_) {
    wanted_ = std::move(report);
  } else {
    Open(report);
  }
}

void ContextMenus::OnRightButton(bool down) {
  right_button_down_ = down;
  const std::optional<ContextMenuReport> wanted = std::exchange(wanted_, std::nullopt);
  if (!down && wanted) {
    Open(*wanted);
  }
}

void ContextMenus::Open(const ContextMenuReport& report) {
  const ScriptContexts::Context* const context = core_.script_contexts().Find(report.context);
  const CefRefPtr<EditionFrame> frame = context ? core_.frames().Find(context->frame_id) : nullptr;
  const CefRefPtr<CefBrowser> browser = core_.browser();
  if (menu_ || !frame || !browser) {
    return;
  }
  const POINT in_view = core_.view().ToView(report.x, report.y);
  const auto menu = std::make_shared<Menu>();
  menu->frame = frame;
  menu->at = core_.view().ToScreen(report.x, report.y);
  menu->params = MakeContextMenuParams(report, in_view.x, in_view.y, core_.frames().main()->url(),
                                       frame->IsMain() ? std::string() : frame->url());
  menu->model = MakeMenuModel();
  const BrowserCore::State state = core_.state();
  FillDefaultMenu(*menu->model, *menu->params, state.can_go_back, state.can_go_forward);

  const std::shared_ptr<BrowserCore> alive = core_.shared_from_this();
  const auto handler = core_.client() ? core_.client()->GetContextMenuHandler() : nullptr;
  menu_ = menu;
  if (handler) {
    handler->OnBeforeContextMenu(browser, frame, menu->params, menu->model);
    if (menu_ != menu) {
      return;
    }
    if (menu->model->GetCount() == 0) {
      // A menu that never was is not dismissed either.
      menu_ = nullptr;
      return;
    }
    const CefRefPtr<RunCallback> callback = new RunCallback(core_.weak_from_this(), menu);
    if (handler->RunContextMenu(browser, frame, menu->params, menu->model, callback)) {
      return;
    }
    callback->Disarm();
  }
  // On its own, because tasks run while the menu is open.
  core_.Post([menu](BrowserCore& core) { core.menus().Show(menu); });
}

void ContextMenus::Show(const std::shared_ptr<Menu>& menu) {
  const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI);
  if (menu_ != menu || !ui) {
    return;
  }
  const std::shared_ptr<BrowserCore> alive = core_.shared_from_this();
  std::optional<Choice> choice;
  on_screen_ = true;
  ui->RunModal([&] {
    if (const std::optional<int> command =
            ShowPopupMenu(core_.view().hwnd(), menu->at, *menu->model)) {
      choice = Choice{*command, HeldKeyFlags()};
    }
  });
  on_screen_ = false;
  Finish(menu, choice);
}

void ContextMenus::End() {
  wanted_.reset();
  if (!menu_) {
    return;
  }
  if (on_screen_) {
    EndMenu();
  }
  Finish(menu_, std::nullopt);
}

void ContextMenus::Finish(std::shared_ptr<Menu> menu, std::optional<Choice> choice) {
  if (menu_ != menu) {
    return;
  }
  const std::shared_ptr<BrowserCore> alive = core_.shared_from_this();
  if (choice) {
    Execute(*menu, *choice);
  }
  // Closed by what was chosen, the browser has ended its menu already.
  if (menu_ != menu) {
    return;
  }
  menu_ = nullptr;
  const CefRefPtr<CefBrowser> browser = core_.browser();
  if (const auto handler = core_.client() ? core_.client()->GetContextMenuHandler() : nullptr;
      handler && browser) {
    handler->OnContextMenuDismissed(browser, menu->frame);
  }
}

void ContextMenus::Execute(const Menu& menu, const Choice& choice) {
  const CefRefPtr<CefBrowser> browser = core_.browser();
  const auto handler = core_.client() ? core_.client()->GetContextMenuHandler() : nullptr;
  if (handler && browser &&
      handler->OnContextMenuCommand(browser, menu.frame, menu.params, choice.command,
                                    choice.flags)) {
    return;
  }
  CarryOut(menu, choice.command);
}

void ContextMenus::CarryOut(const Menu& menu, int command) {
  switch (command) {
    case MENU_ID_BACK:
      core_.GoInHistory(-1);
      break;
    case MENU_ID_FORWARD:
      core_.GoInHistory(1);
      break;
    case MENU_ID_RELOAD:
    case MENU_ID_RELOAD_NOCACHE:
      core_.Reload(command == MENU_ID_RELOAD_NOCACHE);
      break;
    case MENU_ID_STOPLOAD:
      core_.StopLoad();
      break;
    case MENU_ID_UNDO:
      menu.frame->Undo();
      break;
    case MENU_ID_REDO:
      menu.frame->Redo();
      break;
    case MENU_ID_CUT:
      menu.frame->Cut();
      break;
    case MENU_ID_COPY:
      menu.frame->Copy();
      break;
    case MENU_ID_PASTE:
      menu.frame->Paste();
      break;
    case MENU_ID_DELETE:
      menu.frame->Delete();
      break;
    case MENU_ID_SELECT_ALL:
      menu.frame->SelectAll();
      break;
    default:
      break;
  }
}

}  // namespace cefedition
