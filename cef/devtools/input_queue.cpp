#include "devtools/input_queue.h"

#include <chrono>
#include <utility>

#include "devtools/browser_core.h"
#include "devtools/context_menus.h"
#include "devtools/engine_threads.h"
#include "devtools/focus_report.h"
#include "devtools/json_fields.h"

namespace cefedition {
namespace {

// How long a key waits for a page that does not answer.
constexpr std::chrono::milliseconds kPageTimeout{500};

constexpr uint32_t kShortcutKeys =
    EVENTFLAG_CONTROL_DOWN | EVENTFLAG_ALT_DOWN | EVENTFLAG_COMMAND_DOWN;

bool IsTab(const KeyPress& key) {
  return key.event.type == KEYEVENT_RAWKEYDOWN && key.event.windows_key_code == VK_TAB &&
         (key.event.modifiers & kShortcutKeys) == 0;
}

}  // namespace

InputQueue::InputQueue(BrowserCore& core) : core_(core) {}

InputQueue::~InputQueue() = default;

void InputQueue::Add(const InputCommand& command) {
  waiting_.push_back({command, std::nullopt});
  SendWaiting();
}

void InputQueue::AddKey(const KeyPress& key) {
  waiting_.push_back({key.command, key});
  SendWaiting();
}

void InputQueue::SendWaiting() {
  while (!asking_ && !waiting_.empty()) {
    if (IsAskedAbout(waiting_.front())) {
      StartAsking();
      return;
    }
    const Entry entry = std::move(waiting_.front());
    waiting_.pop_front();
    SendNow(entry);
  }
}

bool InputQueue::IsAskedAbout(const Entry& entry) {
  return entry.key && core_.client() && core_.client()->GetKeyboardHandler();
}

void InputQueue::StartAsking() {
  const KeyPress& key = *waiting_.front().key;
  if (key.event.type == KEYEVENT_RAWKEYDOWN || key.event.type == KEYEVENT_KEYDOWN) {
    consumed_ = false;
  } else if (consumed_) {
    waiting_.pop_front();
    SendWaiting();
    return;
  }
  asking_ = true;
  if (page_silent_) {
    AskClient(editable_);
    return;
  }
  awaits_page_ = true;
  const int question = ++question_;
  if (const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI)) {
    ui->PostDelayed(Guarded([question](InputQueue& self) {
                      if (self.awaits_page_ && self.question_ == question) {
                        self.page_silent_ = true;
                        self.untaken_ = 0;
                        ++self.generation_;
                        self.AskClient(self.editable_);
                      }
                    }),
                    kPageTimeout);
  }
  if (untaken_ == 0) {
    AskPage();
  }
}

void InputQueue::AskPage() {
  AskForFocus(core_, [weak = core_.weak_from_this(), question = question_](PageFocus focus) {
    const std::shared_ptr<BrowserCore> core = weak.lock();
    if (!core) {
      return;
    }
    InputQueue& self = core->input();
    self.page_silent_ = false;
    self.editable_ = focus == PageFocus::kEditable;
    if (self.awaits_page_ && self.question_ == question) {
      self.AskClient(self.editable_);
    }
  });
}

void InputQueue::AskClient(bool editable) {
  const std::shared_ptr<BrowserCore> alive = core_.shared_from_this();
  awaits_page_ = false;
  Entry entry = std::move(waiting_.front());
  waiting_.pop_front();
  CefKeyEvent event = entry.key->event;
  event.focus_on_editable_field = editable ? 1 : 0;
  const CefRefPtr<CefBrowser> browser = core_.browser();
  const auto handler = core_.client()->GetKeyboardHandler();
  bool is_shortcut = false;
  MSG* const message = entry.key->message.hwnd ? &entry.key->message : nullptr;
  // The keys behind this one wait meanwhile, also when the client runs a message loop.
  if (browser && handler && handler->OnPreKeyEvent(browser, event, message, &is_shortcut)) {
    consumed_ = event.type == KEYEVENT_RAWKEYDOWN || event.type == KEYEVENT_KEYDOWN;
  } else {
    SendNow(entry);
  }
  asking_ = false;
  SendWaiting();
}

void InputQueue::SendNow(const Entry& entry) {
  ++untaken_;
  core_.session().Send(
      entry.command.method, entry.command.params,
      [weak = core_.weak_from_this(), entry, generation = generation_](const ProtocolReply&) {
        if (const auto core = weak.lock()) {
          core->input().OnTaken(entry, generation);
        }
      });
  if (TextField(entry.command.params, "button") == "right") {
    const std::string type = TextField(entry.command.params, "type");
    if (type == "mousePressed" || type == "mouseReleased") {
      core_.menus().OnRightButton(type == "mousePressed");
    }
  }
}

void InputQueue::OnTaken(const Entry& entry, int generation) {
  page_silent_ = false;
  if (generation == generation_) {
    --untaken_;
  }
  if (entry.key && IsTab(*entry.key)) {
    ReportLeaving(*entry.key);
  }
  if (awaits_page_ && untaken_ == 0) {
    AskPage();
  }
}

void InputQueue::ReportLeaving(const KeyPress& tab) {
  const auto handler = core_.client() ? core_.client()->GetFocusHandler() : nullptr;
  if (!handler) {
    return;
  }
  const bool next = (tab.event.modifiers & EVENTFLAG_SHIFT_DOWN) == 0;
  AskForFocus(core_, [weak = core_.weak_from_this(), handler, next](PageFocus focus) {
    const std::shared_ptr<BrowserCore> core = weak.lock();
    const CefRefPtr<CefBrowser> browser = core ? core->browser() : nullptr;
    if (browser && focus == PageFocus::kNone) {
      handler->OnTakeFocus(browser, next);
    }
  });
}

std::function<void()> InputQueue::Guarded(std::function<void(InputQueue&)> task) {
  return [weak = core_.weak_from_this(), task = std::move(task)] {
    if (const auto core = weak.lock()) {
      task(core->input());
    }
  };
}

}  // namespace cefedition
