#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <string>

#include "devtools/protocol_connection.h"

namespace cefedition {

/// The way to one page (a protocol session). Commands that are sent before the page is there and
/// set up wait for that; those sent after the page is gone fail. Any thread.
class PageSession {
 public:
  explicit PageSession(std::weak_ptr<ProtocolConnection> connection);

  void Send(const std::string& method,
            Json params = Json::object(),
            ProtocolConnection::ReplyHandler handler = {});

  /// Sends past those that wait, once the page is there; before that and after its end, nothing is
  /// sent and the handler hears of a failure. For what a page that is being set up waits for
  /// itself.
  void SendAtOnce(const std::string& method,
                  Json params,
                  ProtocolConnection::ReplyHandler handler = {});

  /// Sends one command of those that set a page up.
  using Sender = std::function<
      void(const std::string& method, Json params, ProtocolConnection::ReplyHandler handler)>;

  /// The page is there: `set_up` sends its commands. All others still wait.
  void Attach(const std::string& session_id, const std::function<void(const Sender&)>& set_up);

  /// The page is set up: what waited is sent.
  void Open();

  /// The page is gone, or will never be there. What waits is answered by a failure.
  void Detach();

  /// Empty before `Attach` and after `Detach`.
  std::string id() const;

 private:
  struct Command {
    std::string method;
    Json params;
    ProtocolConnection::ReplyHandler handler;
  };
  enum class State { kWaiting, kAttached, kOpen, kDetached };

  const std::weak_ptr<ProtocolConnection> connection_;
  mutable std::mutex lock_;
  State state_ = State::kWaiting;
  std::string session_id_;
  std::deque<Command> waiting_;
};

}  // namespace cefedition
