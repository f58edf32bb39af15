#include "devtools/page_session.h"

#include "devtools/engine_threads.h"

namespace cefedition {
namespace {

void FailLater(ProtocolConnection::ReplyHandler handler) {
  if (handler) {
    PostToUi([handler = std::move(handler)] {
      handler({false, {{"code", 0}, {"message", "The page is closed"}}});
    });
  }
}

}  // namespace

PageSession::PageSession(std::weak_ptr<ProtocolConnection> connection)
    : connection_(std::move(connection)) {}

void PageSession::Send(const std::string& method,
                       Json params,
                       ProtocolConnection::ReplyHandler handler) {
  // Held throughout, so that a command cannot overtake those that waited.
  std::lock_guard hold(lock_);
  const std::shared_ptr<ProtocolConnection> connection = connection_.lock();
  if (state_ == State::kDetached || !connection) {
    FailLater(std::move(handler));
  } else if (state_ != State::kOpen) {
    waiting_.push_back({method, std::move(params), std::move(handler)});
  } else {
    connection->Send(session_id_, method, std::move(params), std::move(handler));
  }
}

void PageSession::SendAtOnce(const std::string& method,
                             Json params,
                             ProtocolConnection::ReplyHandler handler) {
  std::lock_guard hold(lock_);
  const std::shared_ptr<ProtocolConnection> connection = connection_.lock();
  if ((state_ == State::kAttached || state_ == State::kOpen) && connection) {
    connection->Send(session_id_, method, std::move(params), std::move(handler));
  } else {
    FailLater(std::move(handler));
  }
}

void PageSession::Attach(const std::string& session_id,
                         const std::function<void(const Sender&)>& set_up) {
  std::lock_guard hold(lock_);
  const std::shared_ptr<ProtocolConnection> connection = connection_.lock();
  if (state_ != State::kWaiting || !connection) {
    return;
  }
  state_ = State::kAttached;
  session_id_ = session_id;
  set_up([&](const std::string& method, Json params, ProtocolConnection::ReplyHandler handler) {
    connection->Send(session_id_, method, std::move(params), std::move(handler));
  });
}

void PageSession::Open() {
  std::lock_guard hold(lock_);
  const std::shared_ptr<ProtocolConnection> connection = connection_.lock();
  if (state_ != State::kAttached || !connection) {
    return;
  }
  state_ = State::kOpen;
  for (Command& command : waiting_) {
    connection->Send(session_id_, command.method, std::move(command.params),
                     std::move(command.handler));
  }
  waiting_.clear();
}

void PageSession::Detach() {
  std::deque<Command> lost;
  {
    std::lock_guard hold(lock_);
    state_ = State::kDetached;
    session_id_.clear();
    lost.swap(waiting_);
  }
  for (Command& command : lost) {
    FailLater(std::move(command.handler));
  }
}

std::string PageSession::id() const {
  std::lock_guard hold(lock_);
  return session_id_;
}

}  // namespace cefedition
