#include "devtools/edition_frame.h"

#include "devtools/browser_core.h"
#include "devtools/json_fields.h"
#include "devtools/process_message_observer.h"

namespace cefedition {

EditionFrame::EditionFrame(std::weak_ptr<BrowserCore> core,
                           const std::string& id,
                           const std::string& parent_id,
                           bool is_main)
    : core_(std::move(core)), id_(id), parent_id_(parent_id), is_main_(is_main) {}

std::string EditionFrame::id() const {
  std::lock_guard hold(lock_);
  return id_;
}

std::string EditionFrame::parent_id() const {
  return parent_id_;
}

std::string EditionFrame::name() const {
  std::lock_guard hold(lock_);
  return name_;
}

std::string EditionFrame::url() const {
  std::lock_guard hold(lock_);
  return url_;
}

std::string EditionFrame::context() const {
  std::lock_guard hold(lock_);
  return context_;
}

void EditionFrame::SetId(const std::string& id) {
  std::lock_guard hold(lock_);
  id_ = id;
}

void EditionFrame::SetDocument(const std::string& url, const std::string& name) {
  std::lock_guard hold(lock_);
  url_ = url;
  name_ = name;
}

void EditionFrame::SetUrl(const std::string& url) {
  std::lock_guard hold(lock_);
  url_ = url;
}

void EditionFrame::SetContext(const std::string& unique_context_id) {
  std::lock_guard hold(lock_);
  context_ = unique_context_id;
}

void EditionFrame::Invalidate() {
  std::lock_guard hold(lock_);
  valid_ = false;
  core_.reset();
}

std::shared_ptr<BrowserCore> EditionFrame::core() const {
  std::lock_guard hold(lock_);
  return core_.lock();
}

bool EditionFrame::IsValid() {
  std::lock_guard hold(lock_);
  return valid_;
}

void EditionFrame::Edit(const char* command) {
  if (const auto browser = core()) {
    browser->Evaluate(this, std::string("document.execCommand('") + command + "')", {}, 1);
  }
}

void EditionFrame::Undo() {
  Edit("undo");
}

void EditionFrame::Redo() {
  Edit("redo");
}

void EditionFrame::Cut() {
  Edit("cut");
}

void EditionFrame::Copy() {
  Edit("copy");
}

void EditionFrame::Paste() {
  Edit("paste");
}

void EditionFrame::Delete() {
  Edit("delete");
}

void EditionFrame::SelectAll() {
  Edit("selectAll");
}

void EditionFrame::ViewSource() {}

void EditionFrame::GetSource(CefRefPtr<CefStringVisitor> visitor) {
  VisitText(
      "(document.doctype ? new XMLSerializer().serializeToString(document.doctype) : '') +"
      "document.documentElement.outerHTML",
      visitor);
}

void EditionFrame::GetText(CefRefPtr<CefStringVisitor> visitor) {
  VisitText("document.body ? document.body.innerText : ''", visitor);
}

void EditionFrame::VisitText(const char* expression, CefRefPtr<CefStringVisitor> visitor) {
  const auto browser = core();
  if (!browser || !visitor) {
    return;
  }
  Json params = {{"expression", expression}, {"returnByValue", true}, {"silent", true}};
  if (const std::string in = context(); !in.empty()) {
    params["uniqueContextId"] = in;
  }
  browser->session().Send("Runtime.evaluate", std::move(params),
                          [visitor](const ProtocolReply& reply) {
                            visitor->Visit(TextField(Field(reply.value, "result"), "value"));
                          });
}

void EditionFrame::LoadRequest(CefRefPtr<CefRequest> request) {
  const auto browser = core();
  if (browser && request) {
    browser->LoadUrl(this, request->GetURL().ToString(), request->GetReferrerURL().ToString());
  }
}

void EditionFrame::LoadURL(const CefString& url) {
  if (const auto browser = core()) {
    browser->LoadUrl(this, url.ToString(), {});
  }
}

void EditionFrame::ExecuteJavaScript(const CefString& code,
                                     const CefString& script_url,
                                     int start_line) {
  if (const auto browser = core()) {
    browser->Evaluate(this, code.ToString(), script_url.ToString(), start_line);
  }
}

bool EditionFrame::IsMain() {
  return is_main_;
}

bool EditionFrame::IsFocused() {
  const auto browser = core();
  return browser && is_main_ && browser->state().focused;
}

CefString EditionFrame::GetName() {
  return name();
}

CefString EditionFrame::GetIdentifier() {
  return id();
}

CefRefPtr<CefFrame> EditionFrame::GetParent() {
  const auto browser = core();
  if (!browser || is_main_) {
    return nullptr;
  }
  return browser->frames().Find(parent_id_);
}

CefString EditionFrame::GetURL() {
  return url();
}

CefRefPtr<CefBrowser> EditionFrame::GetBrowser() {
  const auto browser = core();
  return browser ? browser->browser() : nullptr;
}

void EditionFrame::SendProcessMessage(CefProcessId target_process,
                                      CefRefPtr<CefProcessMessage> message) {
  if (target_process != PID_RENDERER || !message || !message->IsValid() || !IsValid()) {
    return;
  }
  NotifyProcessMessage(this, message);
  if (const auto browser = core()) {
    browser->Post(
        [copy = message->Copy()](BrowserCore& target) { target.queries().OnMessage(copy); });
  }
}

}  // namespace cefedition
