#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>

#include "devtools/byte_stream.h"
#include "devtools/task_thread.h"

namespace cefedition {

using Json = nlohmann::json;

/// The answer to a protocol command.
struct ProtocolReply {
  bool ok = false;
  /// The command's result, or for a failed one the error object (`code`, `message`).
  Json value;
  /// The error's message, empty for a success.
  std::string ErrorMessage() const;
};

struct ProtocolEvent {
  /// The page session, empty for the browser itself.
  std::string session;
  std::string method;
  Json params;
};

/// The DevTools protocol over the browser's pipe: commands out, replies and events in.
///
/// Replies and events are handed to one task thread, in the order in which they arrived; the
/// socket is read and written by two threads of the connection's own, so that no caller ever waits
/// for the browser.
class ProtocolConnection {
 public:
  using ReplyHandler = std::function<void(const ProtocolReply& reply)>;

  /// Run on the task thread, but for `take_early`.
  struct Handlers {
    std::function<void(const ProtocolEvent& event)> on_event;
    /// The connection is gone, or `Close` was called. Every outstanding reply has been handed out.
    std::function<void()> on_closed;
    /// On the thread that reads, before an event is handed on; must only hand it on itself. True
    /// when the event has been taken. May be empty.
    std::function<bool(const ProtocolEvent& event)> take_early = {};
  };

  /// `target` must outlive the connection.
  ProtocolConnection(ByteStream stream, TaskThread& target, Handlers handlers);
  /// Closes and waits for both threads. Not on one of them.
  ~ProtocolConnection();
  ProtocolConnection(const ProtocolConnection&) = delete;
  ProtocolConnection& operator=(const ProtocolConnection&) = delete;

  /// Sends a command; any thread. `handler` (which may be empty) runs exactly once on the task
  /// thread, with a failed reply if the connection is gone before the answer came.
  void Send(const std::string& session,
            const std::string& method,
            Json params = Json::object(),
            ReplyHandler handler = {});

  /// Ends the connection. Any thread.
  void Close();

 private:
  void ReadLoop();
  void WriteLoop();
  void Receive(std::string_view text);
  void FailOutstanding();

  ByteStream stream_;
  TaskThread& target_;
  const std::shared_ptr<const Handlers> handlers_;

  std::mutex lock_;
  bool closed_ = false;
  int last_id_ = 0;
  std::map<int, ReplyHandler> outstanding_;
  std::deque<std::string> outgoing_;
  std::condition_variable outgoing_changed_;

  std::thread reader_;
  std::thread writer_;
};

}  // namespace cefedition
