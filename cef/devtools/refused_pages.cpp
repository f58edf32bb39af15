#include "devtools/refused_pages.h"

#include "devtools/json_fields.h"

namespace cefedition {

RefusedPages::RefusedPages(Sender send) : send_(std::move(send)) {}

void RefusedPages::Refuse(const std::string& target_id, const std::string& session_id, bool loads) {
  Page& page = pages_[session_id];
  page.target_id = target_id;
  send_(session_id, "Fetch.enable", Json::object());
  send_(session_id, "Runtime.runIfWaitingForDebugger", Json::object());
  if (!loads) {
    Close(page);
  }
}

bool RefusedPages::OnEvent(const ProtocolEvent& event) {
  const auto found = pages_.find(event.session);
  if (found == pages_.end()) {
    return false;
  }
  if (event.method == "Fetch.requestPaused") {
    send_(event.session, "Fetch.failRequest",
          {{"requestId", TextField(event.params, "requestId")}, {"errorReason", "Aborted"}});
    Close(found->second);
  }
  return true;
}

void RefusedPages::CloseIfOpen(const std::string& session_id) {
  if (const auto found = pages_.find(session_id); found != pages_.end()) {
    Close(found->second);
  }
}

void RefusedPages::OnDetached(const std::string& session_id) {
  pages_.erase(session_id);
}

void RefusedPages::Close(Page& page) {
  if (!page.closing) {
    page.closing = true;
    send_({}, "Target.closeTarget", {{"targetId", page.target_id}});
  }
}

}  // namespace cefedition
