// The part of BrowserCore that makes a new page ready for its first load.
#include "devtools/browser_core.h"
#include "devtools/certificate_errors.h"
#include "devtools/context_menus.h"
#include "devtools/draggable_regions.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/focus_report.h"
#include "devtools/inspector.h"
#include "devtools/json_fields.h"
#include "devtools/page_report.h"
#include "devtools/resource_requests.h"

namespace cefedition {
namespace {

// How long a new page's empty document may take to be announced as loaded.
constexpr std::chrono::milliseconds kFirstDocumentTimeout{1000};

}  // namespace

void BrowserCore::AttachPage(const std::string& target_id, const std::string& session_id) {
  // A page's first main frame bears the page's id.
  target_id_ = target_id;
  frames_->SetMainId(target_id);
  // A page made to order has an empty document, which is no load that anybody asked for and no
  // place to go back to. A popup loads at once what it was opened for.
  first_document_over_ = adopted_;
  history_reset_ = adopted_;
  if (adopted_) {
    loads_.ExpectTransition(target_id, TT_LINK);
  }
  requests_ = ResourceRequests::Create(*this);
  engine_.RouteRequests(session_id, requests_);
  session_.Attach(session_id, [this](const PageSession::Sender& send) {
    send("Page.enable", Json::object(), {});
    send("Runtime.enable", Json::object(), {});
    send("Log.enable", Json::object(), {});
    for (const auto& [method, params] : ReportCommands()) {
      send(method, params, {});
    }
    send("Emulation.setUserAgentOverride", UserAgentParams(), {});
    for (const auto& [method, params] : CertificateErrorCommands(*this)) {
      send(method, params, {});
    }
    EnableInterception(send);
    // Its answer comes once the page has taken all of the above.
    send("Page.getFrameTree", Json::object(),
         [weak = weak_from_this()](const ProtocolReply& reply) {
           if (const auto core = weak.lock()) {
             core->Enqueue([core, tree = reply.value] { core->OnPageSetUp(tree); });
           }
         });
    send("Runtime.runIfWaitingForDebugger", Json::object(), {});
  });
  view_.StartPainting();
  devtools_.OnPageReady();
  if (const std::shared_ptr<BrowserCore> window = devtools_window_.lock()) {
    window->inspector_->OnPageReady();
  }
}

std::vector<std::pair<std::string, Json>> BrowserCore::ReportCommands() const {
  std::vector<std::pair<std::string, Json>> all;
  for (const auto& commands : {PageReportCommands(), queries_.Commands(), FocusReportCommands(),
                               ContextMenuReportCommands()}) {
    all.insert(all.end(), commands.begin(), commands.end());
  }
  if (client_ && client_->GetDragHandler()) {
    const auto commands = DraggableRegionsCommands();
    all.insert(all.end(), commands.begin(), commands.end());
  }
  if (inspector_) {
    const auto commands = inspector_->Commands();
    all.insert(all.end(), commands.begin(), commands.end());
  }
  return all;
}

void BrowserCore::EnableInterception(const PageSession::Sender& send) {
  Json document = {{"resourceType", "Document"}, {"requestStage", "Request"}};
  if (!requests_) {
    // Requests of navigations only; sub-resources pass without a halt.
    Json answer = document;
    answer["requestStage"] = "Response";
    send("Fetch.enable", {{"patterns", Json::array({document, answer})}}, {});
    return;
  }
  // Only the ends of requests are of interest, not what they brought.
  send("Network.enable", {{"maxTotalBufferSize", 0}, {"maxResourceBufferSize", 0}}, {});
  // Whether a request is halted again with its response is decided for each.
  send("Fetch.enable",
       {{"patterns", Json::array({{{"urlPattern", "*"}, {"requestStage", "Request"}}})},
        {"handleAuthRequests", true}},
       {});
}

void BrowserCore::OnPageSetUp(const Json& tree) {
  page_set_up_ = true;
  const Json& frame = Field(Field(tree, "frameTree"), "frame");
  const std::string url = TextField(frame, "url");
  if (adopted_ && committed_loader_.empty() && url != "about:blank" && !url.empty()) {
    // The popup was faster than its setting up, and its first document went unnoticed.
    OnFrameNavigated({{"frame", frame}});
  }
  OpenPageIfReady();
  if (!first_document_over_) {
    // The end of the empty document is announced before or soon after this, but not promised.
    if (const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI)) {
      ui->PostDelayed(
          [weak = weak_from_this()] {
            if (const auto core = weak.lock(); core && !core->first_document_over_) {
              core->first_document_over_ = true;
              core->OpenPageIfReady();
            }
          },
          kFirstDocumentTimeout);
    }
  }
}

void BrowserCore::OpenPageIfReady() {
  if (page_open_ || !page_set_up_ || !first_document_over_) {
    return;
  }
  page_open_ = true;
  session_.Open();
  for (const auto& load : std::exchange(first_loads_, {})) {
    load(*this);
  }
}

Json BrowserCore::UserAgentParams() const {
  return {{"userAgent", engine_.user_agent()}, {"acceptLanguage", engine_.accept_languages()}};
}

void BrowserCore::ApplyUserAgent() {
  // A page that is not there yet gets the newest when it comes.
  session_.SendAtOnce("Emulation.setUserAgentOverride", UserAgentParams());
}

}  // namespace cefedition
