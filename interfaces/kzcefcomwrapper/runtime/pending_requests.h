// The process's table of requests that wait for the host's thread.
#pragma once

#include <memory>
#include <string>

#include "handler/host_thread_dispatcher.h"

namespace kzcef {

// The one dispatcher behind all client handlers. All its objects share the tables, which live as
// long as the process does: a request that the host never comes for stays in them, and so do those
// that join it.
class PendingRequests final : public HostThreadDispatcher {
 public:
  bool HasPendingWork() override;
  Identifier ParkRequest(const std::string& key, std::unique_ptr<ParkedRequest> request) override;
  void PostToMainWindow(Identifier identifier, const kzCefClientHandler* handler) override;
  // A request leaves the tables when this ends, together with those that joined it up to then,
  // whether its question could be asked or not. If it could not, they are freed without an answer,
  // and the next request with their key is parked anew.
  void ProcessRequest(Identifier identifier) override;

 private:
  IMPLEMENT_REFCOUNTING(PendingRequests);
};

// Answers all pending requests with no choice, also one whose question is on the screen; the user's
// answer then no longer counts. Requests that come later are freed without an answer. For the end
// of the engine, which wants its objects back; host's thread.
void EndPendingRequests() noexcept;

}  // namespace kzcef
