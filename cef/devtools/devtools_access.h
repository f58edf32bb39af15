#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "devtools/protocol_connection.h"
#include "include/cef_devtools_message_observer.h"
#include "include/cef_registration.h"
#include "include/cef_values.h"

namespace cefedition {

class BrowserCore;

/// The client's own access to the DevTools protocol. It has a protocol session of its own beside
/// the engine's, opened on first use, so that what the client enables or disables is its affair
/// and it sees only the events that it asked for.
class DevToolsAccess {
 public:
  explicit DevToolsAccess(BrowserCore& core);

  /// Any thread. `message` is a whole protocol message; false when it is not one.
  bool SendMessage(const std::string& message);

  /// UI thread. Returns the id that the result will carry, 0 on failure; a `message_id` of 0 has
  /// one chosen.
  int Execute(int message_id, const std::string& method, CefRefPtr<CefDictionaryValue> params);

  /// UI thread. The observer hears until the registration is released.
  CefRefPtr<CefRegistration> AddObserver(CefRefPtr<CefDevToolsMessageObserver> observer);

  // UI thread, for the engine.
  bool OwnsSession(const std::string& session_id) const;
  void OnEvent(const ProtocolEvent& event);
  void OnPageReady();
  void OnPageGone();

 private:
  class Registration;
  struct Command {
    int id = 0;
    std::string method;
    Json params;
  };

  void Submit(Command command);
  void Open();
  void SendNow(const Command& command);
  void OnReply(int id, const ProtocolReply& reply);
  /// The observers at the moment, which may come and go while they are called.
  std::vector<CefRefPtr<CefDevToolsMessageObserver>> Observers() const;
  void Remove(CefDevToolsMessageObserver* observer);

  BrowserCore& core_;
  mutable std::mutex lock_;
  std::vector<CefRefPtr<CefDevToolsMessageObserver>> observers_;
  int last_id_ = 0;

  // UI thread.
  bool page_ready_ = false;
  bool opening_ = false;
  std::string session_id_;
  std::deque<Command> waiting_;
};

}  // namespace cefedition
