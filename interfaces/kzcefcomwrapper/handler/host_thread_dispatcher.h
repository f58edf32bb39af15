// The interface through which a client handler hands a request over to the host's thread.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "handler/parked_request.h"
#include "include/cef_base.h"

namespace kzcef {

class kzCefClientHandler;

// Parks requests until the host's thread comes for them. Any thread, unless said otherwise.
class HostThreadDispatcher : public virtual CefBaseRefCounted {
 public:
  // Grows by one with each request that is parked anew, from 1 on; 0 means that none was.
  using Identifier = std::uintptr_t;

  // Returns whether any request, of whatever key, waits to be finished.
  virtual bool HasPendingWork() = 0;
  // Parks `request` and returns its identifier; 0 when a request with the same `key` (UTF-8) is
  // pending, which this one then joins.
  virtual Identifier ParkRequest(const std::string& key,
                                 std::unique_ptr<ParkedRequest> request) = 0;
  // Asks the host to come for a request, by a message to its main window. Without such a window
  // nothing is posted, and the request stays parked.
  virtual void PostToMainWindow(Identifier identifier, const kzCefClientHandler* handler) = 0;
  // Finishes a request and those that have joined it. Runs the user's dialog meanwhile, without any
  // lock. Does nothing for an identifier that is unknown, or whose dialog is open already. Host's
  // thread.
  virtual void ProcessRequest(Identifier identifier) = 0;
};

}  // namespace kzcef
