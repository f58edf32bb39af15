#include "devtools/download_pages.h"

#include "ascii.h"
#include "devtools/browser_core.h"
#include "devtools/edition_frame.h"
#include "devtools/engine.h"
#include "devtools/json_fields.h"
#include "devtools/url_kinds.h"

namespace cefedition {
namespace {

// What only the page itself can load it can also save, without leaving its document.
constexpr char kSaveInPage[] =
    "(url => { const a = document.createElement('a'); a.href = url; a.download = ''; a.click(); })";

}  // namespace

void DownloadPages::Start(const std::shared_ptr<BrowserCore>& core, const std::string& url) {
  if (!IsInterceptable(url)) {
    const Json text = url;
    core->session().Send("Runtime.evaluate",
                         {{"expression", kSaveInPage + ("(" + text.dump(-1, ' ', true) + ")")},
                          {"userGesture", true}});
    return;
  }
  engine_.OpenUnseenPage([this, core, url](const std::string& target, const std::string& session) {
    OnOpened(target, session, core, url);
  });
}

void DownloadPages::OnOpened(const std::string& target_id,
                             const std::string& session_id,
                             const std::shared_ptr<BrowserCore>& core,
                             const std::string& url) {
  Page& page = pages_[target_id];
  page.session_id = session_id;
  page.core = core;
  const Json pattern = {{"urlPattern", "*"}, {"resourceType", "Document"}};
  Json request = pattern;
  request["requestStage"] = "Request";
  Json response = pattern;
  response["requestStage"] = "Response";
  engine_.Send(
      session_id, "Emulation.setUserAgentOverride",
      {{"userAgent", engine_.user_agent()}, {"acceptLanguage", engine_.accept_languages()}});
  engine_.Send(session_id, "Fetch.enable", {{"patterns", Json::array({request, response})}});
  engine_.Send(session_id, "Runtime.runIfWaitingForDebugger", Json::object());
  engine_.Send(session_id, "Page.navigate", {{"url", url}},
               [engine = engine_.weak_from_this(), target_id](const ProtocolReply& reply) {
                 // A download begins after this answer or before it.
                 if (const auto self = engine.lock();
                     self && !BoolField(reply.value, "isDownload")) {
                   self->download_pages().Close(target_id);
                 }
               });
}

bool DownloadPages::OnEvent(const ProtocolEvent& event) {
  for (auto& [target_id, page] : pages_) {
    if (page.session_id == event.session) {
      if (event.method == "Fetch.requestPaused") {
        OnPaused(page, event.params);
      }
      return true;
    }
  }
  return false;
}

void DownloadPages::OnPaused(Page& page, const Json& params) {
  constexpr int kFirstRedirect = 300;
  constexpr int kLastRedirect = 399;
  page.sources.OnPaused(params);
  Json answer = {{"requestId", TextField(params, "requestId")}};
  const int status = IntField(params, "responseStatusCode");
  const bool is_redirect = status >= kFirstRedirect && status <= kLastRedirect;
  if (status == 0 || is_redirect || params.contains("responseErrorReason")) {
    engine_.Send(page.session_id, "Fetch.continueRequest", std::move(answer));
    return;
  }
  // The name that the server gives stays; without one the URL's is taken.
  Json headers = Json::array();
  std::string disposition = "attachment";
  for (const Json& header : Field(params, "responseHeaders")) {
    if (ToLowerAscii(TextField(header, "name")) != "content-disposition") {
      headers.push_back(header);
      continue;
    }
    const std::string value = TextField(header, "value");
    const size_t parameters = value.find(';');
    disposition += parameters != std::string::npos ? value.substr(parameters) : std::string();
  }
  headers.push_back({{"name", "Content-Disposition"}, {"value", disposition}});
  answer["responseCode"] = status;
  answer["responseHeaders"] = std::move(headers);
  engine_.Send(page.session_id, "Fetch.continueResponse", std::move(answer));
}

std::shared_ptr<BrowserCore> DownloadPages::BrowserOf(const std::string& target_id,
                                                      const std::string& url,
                                                      DownloadSource& source) const {
  const auto found = pages_.find(target_id);
  if (found == pages_.end()) {
    return nullptr;
  }
  source = found->second.sources.Find(url);
  return found->second.core.lock();
}

void DownloadPages::Close(const std::string& target_id) {
  if (pages_.erase(target_id) > 0) {
    engine_.CloseTarget(target_id);
  }
}

}  // namespace cefedition
