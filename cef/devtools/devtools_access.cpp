#include "devtools/devtools_access.h"

#include <algorithm>

#include "devtools/browser_core.h"
#include "devtools/engine.h"
#include "devtools/json_fields.h"
#include "include/cef_parser.h"

namespace cefedition {

class DevToolsAccess::Registration : public CefRegistration {
 public:
  Registration(std::weak_ptr<BrowserCore> core, CefDevToolsMessageObserver* observer)
      : core_(std::move(core)), observer_(observer) {}
  ~Registration() override {
    if (const auto core = core_.lock()) {
      core->devtools().Remove(observer_);
    }
  }

 private:
  const std::weak_ptr<BrowserCore> core_;
  CefDevToolsMessageObserver* const observer_;

  IMPLEMENT_REFCOUNTING(Registration);
};

DevToolsAccess::DevToolsAccess(BrowserCore& core) : core_(core) {}

bool DevToolsAccess::SendMessage(const std::string& message) {
  const Json parsed = Json::parse(message, nullptr, /*allow_exceptions=*/false);
  Command command;
  command.id = IntField(parsed, "id");
  command.method = TextField(parsed, "method");
  if (command.id <= 0 || command.method.empty()) {
    return false;
  }
  command.params = Field(parsed, "params").is_object() ? Field(parsed, "params") : Json::object();
  Submit(std::move(command));
  return true;
}

int DevToolsAccess::Execute(int message_id,
                            const std::string& method,
                            CefRefPtr<CefDictionaryValue> params) {
  if (method.empty()) {
    return 0;
  }
  Command command;
  {
    std::lock_guard hold(lock_);
    if (message_id <= 0) {
      message_id = last_id_ + 1;
    }
    last_id_ = std::max(last_id_, message_id);
  }
  command.id = message_id;
  command.method = method;
  command.params = Json::object();
  if (params) {
    CefRefPtr<CefValue> value = CefValue::Create();
    value->SetDictionary(params->Copy(false));
    const std::string text = CefWriteJSON(value, JSON_WRITER_DEFAULT).ToString();
    const Json parsed = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (parsed.is_object()) {
      command.params = parsed;
    }
  }
  const int id = command.id;
  Submit(std::move(command));
  return id;
}

CefRefPtr<CefRegistration> DevToolsAccess::AddObserver(
    CefRefPtr<CefDevToolsMessageObserver> observer) {
  if (!observer) {
    return nullptr;
  }
  {
    std::lock_guard hold(lock_);
    observers_.push_back(observer);
  }
  core_.Post([](BrowserCore& core) { core.devtools().Open(); });
  return new Registration(core_.weak_from_this(), observer.get());
}

bool DevToolsAccess::OwnsSession(const std::string& session_id) const {
  return !session_id.empty() && session_id_ == session_id;
}

void DevToolsAccess::Submit(Command command) {
  core_.Post([command = std::move(command)](BrowserCore& core) {
    DevToolsAccess& self = core.devtools();
    if (!self.session_id_.empty()) {
      self.SendNow(command);
      return;
    }
    self.waiting_.push_back(command);
    self.Open();
  });
}

void DevToolsAccess::Open() {
  if (!page_ready_ || opening_ || !session_id_.empty()) {
    // Without a page the wish stays: `OnPageReady` comes back to it.
    return;
  }
  opening_ = true;
  core_.engine().AttachClientSession(
      core_.target_id(), [weak = core_.weak_from_this()](const std::string& session_id) {
        const std::shared_ptr<BrowserCore> core = weak.lock();
        if (!core) {
          return;
        }
        DevToolsAccess& self = core->devtools();
        self.opening_ = false;
        if (session_id.empty()) {
          self.OnPageGone();
          return;
        }
        self.session_id_ = session_id;
        for (const auto& observer : self.Observers()) {
          observer->OnDevToolsAgentAttached(core->browser());
        }
        const std::deque<Command> waiting = std::exchange(self.waiting_, {});
        for (const Command& command : waiting) {
          self.SendNow(command);
        }
      });
}

void DevToolsAccess::SendNow(const Command& command) {
  core_.engine().Send(session_id_, command.method, command.params,
                      [weak = core_.weak_from_this(), id = command.id](const ProtocolReply& reply) {
                        if (const auto core = weak.lock()) {
                          core->devtools().OnReply(id, reply);
                        }
                      });
}

void DevToolsAccess::OnReply(int id, const ProtocolReply& reply) {
  const std::string value = reply.value.dump();
  const std::string message = Json{{"id", id}, {reply.ok ? "result" : "error", reply.value}}.dump();
  for (const auto& observer : Observers()) {
    if (!observer->OnDevToolsMessage(core_.browser(), message.data(), message.size())) {
      observer->OnDevToolsMethodResult(core_.browser(), id, reply.ok, value.data(), value.size());
    }
  }
}

void DevToolsAccess::OnEvent(const ProtocolEvent& event) {
  const std::string params = event.params.dump();
  const std::string message = Json{{"method", event.method}, {"params", event.params}}.dump();
  for (const auto& observer : Observers()) {
    if (!observer->OnDevToolsMessage(core_.browser(), message.data(), message.size())) {
      observer->OnDevToolsEvent(core_.browser(), event.method, params.data(), params.size());
    }
  }
}

void DevToolsAccess::OnPageReady() {
  page_ready_ = true;
  if (!waiting_.empty() || !Observers().empty()) {
    Open();
  }
}

void DevToolsAccess::OnPageGone() {
  page_ready_ = false;
  if (!std::exchange(session_id_, {}).empty()) {
    for (const auto& observer : Observers()) {
      observer->OnDevToolsAgentDetached(core_.browser());
    }
  }
  const ProtocolReply lost = {false, {{"code", 0}, {"message", "The page is closed"}}};
  const std::deque<Command> waiting = std::exchange(waiting_, {});
  for (const Command& command : waiting) {
    OnReply(command.id, lost);
  }
}

std::vector<CefRefPtr<CefDevToolsMessageObserver>> DevToolsAccess::Observers() const {
  std::lock_guard hold(lock_);
  return observers_;
}

void DevToolsAccess::Remove(CefDevToolsMessageObserver* observer) {
  std::lock_guard hold(lock_);
  const auto found = std::find_if(observers_.begin(), observers_.end(),
                                  [&](const auto& known) { return known.get() == observer; });
  if (found != observers_.end()) {
    observers_.erase(found);
  }
}

}  // namespace cefedition
