#pragma once

#include <functional>
#include <map>
#include <string>

#include "devtools/protocol_connection.h"

namespace cefedition {

/// Closes pages that the client refused before they load anything. UI thread.
///
/// A page that waits for its start holds up its opener's process, and closing alone does not end
/// the wait; a page that is closed while its request is held lets the request go. So such a page is
/// started, its first request is failed, and only then it is closed.
class RefusedPages {
 public:
  using Sender =
      std::function<void(const std::string& session, const std::string& method, Json params)>;

  explicit RefusedPages(Sender send);

  /// `loads` says whether the page is about to request something.
  void Refuse(const std::string& target_id, const std::string& session_id, bool loads);

  /// Whether the event is about a refused page; it has then been dealt with.
  bool OnEvent(const ProtocolEvent& event);

  /// Closes a page that has made no request so far.
  void CloseIfOpen(const std::string& session_id);

  /// `Target.detachedFromTarget`.
  void OnDetached(const std::string& session_id);

 private:
  struct Page {
    std::string target_id;
    bool closing = false;
  };

  void Close(Page& page);

  const Sender send_;
  std::map<std::string, Page> pages_;
};

}  // namespace cefedition
