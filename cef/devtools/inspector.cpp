#include "devtools/inspector.h"

#include "devtools/browser_core.h"
#include "devtools/engine.h"
#include "devtools/inspector_page.h"
#include "devtools/json_fields.h"
#include "include/cef_parser.h"

namespace cefedition {

Inspector::Inspector(BrowserCore& window, std::weak_ptr<BrowserCore> inspected)
    : window_(window), inspected_(std::move(inspected)) {}

Inspector::~Inspector() = default;

std::string Inspector::PageUrl() {
  static const std::string url =
      "data:text/html;base64," +
      CefBase64Encode(kInspectorPage, std::char_traits<char>::length(kInspectorPage)).ToString();
  return url;
}

std::vector<std::pair<std::string, Json>> Inspector::Commands() const {
  return {{"Runtime.addBinding", {{"name", kInspectorBinding}}}};
}

void Inspector::OnCall(const Json& params) {
  // The client may have loaded another page, which is not to control the inspected one.
  if (TextField(params, "name") != kInspectorBinding ||
      window_.frames().main()->url() != PageUrl()) {
    return;
  }
  const Json call = Json::parse(TextField(params, "payload"), nullptr, /*allow_exceptions=*/false);
  const int id = IntField(call, "id");
  if (id == 0) {
    // The page has loaded, perhaps again.
    page_loaded_ = true;
    if (session_id_.empty()) {
      Attach();
    } else {
      OnAttached(session_id_);
    }
    return;
  }
  const Json& arguments = Field(call, "params");
  window_.engine().Send(session_id_, TextField(call, "method"),
                        arguments.is_object() ? arguments : Json::object(),
                        [weak = window_.weak_from_this(), this, id](const ProtocolReply& reply) {
                          // The window owns this object.
                          if (const auto window = weak.lock()) {
                            SendToPage({{"id", id}, {reply.ok ? "result" : "error", reply.value}});
                          }
                        });
}

void Inspector::OnPageReady() {
  if (page_loaded_) {
    Attach();
  }
}

void Inspector::Attach() {
  const std::shared_ptr<BrowserCore> inspected = inspected_.lock();
  // Without a page yet, `OnPageReady` comes back to it.
  if (!inspected || inspected->target_id().empty() || attaching_ || !session_id_.empty()) {
    return;
  }
  attaching_ = true;
  window_.engine().AttachClientSession(
      inspected->target_id(),
      [weak = window_.weak_from_this(), this](const std::string& session_id) {
        if (const auto window = weak.lock()) {
          attaching_ = false;
          OnAttached(session_id);
        }
      });
}

void Inspector::OnAttached(const std::string& session_id) {
  session_id_ = session_id;
  if (session_id.empty()) {
    return;
  }
  if (closed_) {
    Close();
    return;
  }
  SendToPage({{"method", "Edition.attached"}});
  if (const std::optional<CefPoint> point = std::exchange(point_, std::nullopt)) {
    InspectAt(*point);
  }
}

bool Inspector::TakeEvent(const ProtocolEvent& event) {
  if (session_id_.empty() || event.session != session_id_) {
    return false;
  }
  SendToPage({{"method", event.method}, {"params", event.params}});
  return true;
}

void Inspector::InspectAt(const CefPoint& point) {
  const std::shared_ptr<BrowserCore> inspected = inspected_.lock();
  if (session_id_.empty() || !page_loaded_ || !inspected) {
    point_ = point;
    return;
  }
  const POINT in_page = inspected->view().ToPage(point.x, point.y);
  SendToPage({{"method", "Edition.inspect"}, {"params", {{"x", in_page.x}, {"y", in_page.y}}}});
}

void Inspector::SendToPage(const Json& message) {
  const std::string text =
      message.dump(-1, ' ', /*ensure_ascii=*/true, Json::error_handler_t::replace);
  window_.session().Send("Runtime.evaluate", {{"expression", "receive(" + text + ")"}});
}

void Inspector::Close() {
  closed_ = true;
  if (!session_id_.empty()) {
    window_.engine().Send({}, "Target.detachFromTarget", {{"sessionId", session_id_}});
    session_id_.clear();
  }
  if (const std::shared_ptr<BrowserCore> inspected = inspected_.lock()) {
    inspected->SetDevToolsWindow(nullptr);
  }
}

}  // namespace cefedition
