#include "devtools/protocol_connection.h"

#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "log_secrets.h"

namespace cefedition {
namespace {

constexpr size_t kReadSize = size_t{256} * 1024;

// Long enough to tell messages apart; frames and documents would fill the log.
constexpr size_t kLoggedLength = 500;

void LogTraffic(const char* direction, std::string_view message) {
  if (IsLogged(LOGSEVERITY_VERBOSE)) {
    Log(LOGSEVERITY_VERBOSE, direction + WithoutSecrets(message.substr(0, kLoggedLength)));
  }
}

ProtocolReply LostReply() {
  return {false, {{"code", 0}, {"message", "The connection to the browser is closed"}}};
}

}  // namespace

std::string ProtocolReply::ErrorMessage() const {
  return ok ? std::string() : TextField(value, "message");
}

ProtocolConnection::ProtocolConnection(ByteStream stream, TaskThread& target, Handlers handlers)
    : stream_(std::move(stream)),
      target_(target),
      handlers_(std::make_shared<Handlers>(std::move(handlers))),
      reader_([this] { ReadLoop(); }),
      writer_([this] { WriteLoop(); }) {}

ProtocolConnection::~ProtocolConnection() {
  Close();
  reader_.join();
  writer_.join();
}

void ProtocolConnection::Send(const std::string& session,
                              const std::string& method,
                              Json params,
                              ReplyHandler handler) {
  Json message = {{"method", method}, {"params", std::move(params)}};
  if (!session.empty()) {
    message["sessionId"] = session;
  }
  {
    std::lock_guard hold(lock_);
    if (!closed_) {
      const int id = ++last_id_;
      message["id"] = id;
      outstanding_.emplace(id, std::move(handler));
      // Text that a page or a host made up need not be well-formed UTF-8.
      outgoing_.push_back(message.dump(-1, ' ', false, Json::error_handler_t::replace));
      LogTraffic("to the browser: ", outgoing_.back());
      outgoing_.back() += '\0';
      outgoing_changed_.notify_one();
      return;
    }
  }
  if (handler) {
    target_.Post([handler = std::move(handler)] { handler(LostReply()); });
  }
}

void ProtocolConnection::Close() {
  {
    std::lock_guard hold(lock_);
    closed_ = true;
    outgoing_changed_.notify_one();
  }
  stream_.Shutdown();
}

void ProtocolConnection::ReadLoop() {
  std::string buffer;
  size_t searched = 0;
  for (;;) {
    const size_t filled = buffer.size();
    buffer.resize(filled + kReadSize);
    const size_t count = stream_.Read(buffer.data() + filled, kReadSize);
    buffer.resize(filled + count);
    if (count == 0) {
      break;
    }
    size_t start = 0;
    for (size_t end; (end = buffer.find('\0', std::max(start, searched))) != std::string::npos;) {
      Receive(std::string_view(buffer).substr(start, end - start));
      start = end + 1;
    }
    buffer.erase(0, start);
    searched = buffer.size();
  }
  Close();
  FailOutstanding();
  target_.Post([handlers = handlers_] { handlers->on_closed(); });
}

void ProtocolConnection::Receive(std::string_view text) {
  LogTraffic("from the browser: ", text);
  Json message = Json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!message.is_object()) {
    Log(LOGSEVERITY_ERROR, "The browser sent something that is no protocol message");
    return;
  }
  const auto id = message.find("id");
  if (id != message.end() && id->is_number_integer()) {
    ReplyHandler handler;
    {
      std::lock_guard hold(lock_);
      const auto found = outstanding_.find(id->get<int>());
      if (found == outstanding_.end()) {
        return;
      }
      handler = std::move(found->second);
      outstanding_.erase(found);
    }
    if (!handler) {
      return;
    }
    ProtocolReply reply;
    reply.ok = !message.contains("error");
    reply.value = std::move(message[reply.ok ? "result" : "error"]);
    target_.Post([handler = std::move(handler), reply = std::move(reply)] { handler(reply); });
    return;
  }
  ProtocolEvent event;
  event.session = TextField(message, "sessionId");
  event.method = TextField(message, "method");
  event.params = std::move(message["params"]);
  if (handlers_->take_early && handlers_->take_early(event)) {
    return;
  }
  target_.Post([handlers = handlers_, event = std::move(event)] { handlers->on_event(event); });
}

void ProtocolConnection::FailOutstanding() {
  std::map<int, ReplyHandler> lost;
  {
    std::lock_guard hold(lock_);
    lost.swap(outstanding_);
  }
  for (auto& [id, handler] : lost) {
    if (handler) {
      target_.Post([handler = std::move(handler)] { handler(LostReply()); });
    }
  }
}

void ProtocolConnection::WriteLoop() {
  std::unique_lock hold(lock_);
  for (;;) {
    outgoing_changed_.wait(hold, [this] { return closed_ || !outgoing_.empty(); });
    if (closed_) {
      return;
    }
    std::string batch;
    for (const std::string& message : outgoing_) {
      batch += message;
    }
    outgoing_.clear();
    hold.unlock();
    const bool written = stream_.Write(batch);
    hold.lock();
    if (!written) {
      hold.unlock();
      Close();
      return;
    }
  }
}

}  // namespace cefedition
