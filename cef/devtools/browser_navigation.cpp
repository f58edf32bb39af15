// The part of BrowserCore that follows and steers the loads of its frames.

#include <algorithm>

#include "devtools/browser_core.h"
#include "devtools/console_message.h"
#include "devtools/edition_browser.h"
#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"
#include "devtools/navigation_request.h"
#include "devtools/net_error.h"
#include "devtools/page_report.h"
#include "devtools/protocol_execution.h"
#include "devtools/request_content.h"
#include "devtools/resource_requests.h"
#include "devtools/url_kinds.h"

namespace cefedition {
namespace {

// How long after an input a navigation still counts as the user's, as in Chromium.
constexpr std::chrono::seconds kGestureLifetime{5};

// How often, and after what pause, the history is asked for again when the browser refuses.
constexpr int kHistoryAttempts = 20;
constexpr std::chrono::milliseconds kHistoryRetryDelay{5};

// Lines put before a script so that its errors carry the host's line numbers; beyond this the
// numbers are not worth the text.
constexpr int kMaxStartLine = 100000;

bool HasScheme(const std::string& url) {
  const size_t colon = url.find(':');
  return colon != std::string::npos && url.find_first_of("/?#") > colon;
}

// "example.com/x" as a user types it; a port after a host name is no scheme.
std::string CompleteUrl(const std::string& url) {
  const size_t colon = url.find(':');
  const bool port = colon != std::string::npos && colon + 1 < url.size() && url[colon + 1] >= '0' &&
                    url[colon + 1] <= '9';
  return HasScheme(url) && !port ? url : "http://" + url;
}

bool IsSameDocument(const std::string& current, const std::string& next) {
  const size_t fragment = next.find('#');
  return fragment != std::string::npos &&
         next.substr(0, fragment) == current.substr(0, current.find('#'));
}

}  // namespace

void BrowserCore::LoadUrl(CefRefPtr<EditionFrame> frame,
                          const std::string& url,
                          const std::string& referrer) {
  Post([frame, url, referrer](BrowserCore& core) { core.LoadUrlNow(frame, url, referrer); });
}

void BrowserCore::LoadUrlNow(CefRefPtr<EditionFrame> frame,
                             const std::string& url,
                             const std::string& referrer) {
  if (!frame->IsValid() || url.empty()) {
    return;
  }
  if (!page_open_) {
    // The frame gets its identity with the page.
    first_loads_.push_back(
        [frame, url, referrer](BrowserCore& core) { core.LoadUrlNow(frame, url, referrer); });
    return;
  }
  const std::string full = CompleteUrl(url);
  const std::string frame_id = frame->id();
  const bool announced = IsInterceptable(full) || full.starts_with("javascript:") ||
                         IsSameDocument(frame->url(), full);
  if (!announced && !loads_.AskForHost(frame_id, full)) {
    return;
  }
  Json params = {{"url", full}};
  if (!frame->IsMain()) {
    params["frameId"] = frame_id;
  }
  if (!referrer.empty()) {
    params["referrer"] = referrer;
  }
  const bool is_script = full.starts_with("javascript:");
  session_.Send(
      "Page.navigate", std::move(params),
      [weak = weak_from_this(), frame, full, is_script](const ProtocolReply& reply) {
        const auto core = weak.lock();
        const std::string error = TextField(reply.value, "errorText");
        if (!core || is_script || (reply.ok && error.empty())) {
          return;
        }
        const cef_errorcode_t code = reply.ok ? NetErrorFromName(error) : ERR_INVALID_URL;
        core->Enqueue([core, frame, full, code, loader = TextField(reply.value, "loaderId")] {
          core->loads_.OnNavigateFailed(frame->id(), loader, full, code);
        });
      });
}

void BrowserCore::GoInHistory(int offset) {
  Post([offset](BrowserCore& core) { core.GoInHistoryNow(offset, kHistoryAttempts); });
}

void BrowserCore::GoInHistoryNow(int offset, int attempts) {
  session_.Send(
      "Page.getNavigationHistory", Json::object(),
      [weak = weak_from_this(), offset, attempts](const ProtocolReply& reply) {
        const auto self = weak.lock();
        const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI);
        if (!self || self->closed_ || !ui) {
          return;
        }
        if (!reply.ok && attempts > 1) {
          ui->PostDelayed([self, offset, attempts] { self->GoInHistoryNow(offset, attempts - 1); },
                          kHistoryRetryDelay);
          return;
        }
        const Json& entries = Field(reply.value, "entries");
        const int index = IntField(reply.value, "currentIndex") + offset;
        if (entries.is_array() && index >= self->hidden_entries_ &&
            index < static_cast<int>(entries.size())) {
          self->session_.Send("Page.navigateToHistoryEntry",
                              {{"entryId", IntField(entries[static_cast<size_t>(index)], "id")}});
        }
      });
}

void BrowserCore::Reload(bool ignore_cache) {
  session_.Send("Page.reload", {{"ignoreCache", ignore_cache}});
}

void BrowserCore::StopLoad() {
  session_.Send("Page.stopLoading");
}

void BrowserCore::Evaluate(CefRefPtr<EditionFrame> frame,
                           const std::string& code,
                           const std::string& script_url,
                           int start_line) {
  Post([frame, code, script_url, start_line](BrowserCore& core) {
    if (!frame->IsValid() || code.empty()) {
      return;
    }
    const int blank_lines = std::clamp(start_line - 1, 0, kMaxStartLine);
    std::string expression(static_cast<size_t>(blank_lines), '\n');
    expression += code;
    if (!script_url.empty()) {
      expression += "\n//# sourceURL=" + script_url;
    }
    Json params = {{"expression", expression}, {"objectGroup", "kzcef-script"}};
    if (const std::string context = frame->context(); !context.empty()) {
      params["uniqueContextId"] = context;
    }
    core.session_.Send("Runtime.evaluate", std::move(params),
                       [weak = core.weak_from_this()](const ProtocolReply& reply) {
                         if (const auto self = weak.lock()) {
                           self->Enqueue([self, value = reply.value] { self->OnEvaluated(value); });
                         }
                       });
  });
}

void BrowserCore::OnEvaluated(const Json& value) {
  // A result that is an object is kept alive for its caller, who here has no use for it.
  if (Field(value, "result").contains("objectId")) {
    session_.Send("Runtime.releaseObjectGroup", {{"objectGroup", "kzcef-script"}});
  }
  if (Field(value, "exceptionDetails").is_object()) {
    ReportConsole(FromException(Field(value, "exceptionDetails")));
  }
}

void BrowserCore::OnConsole(const std::string& method, const Json& params) {
  if (method == "Runtime.exceptionThrown") {
    ReportConsole(FromException(Field(params, "exceptionDetails")));
  } else if (method == "Log.entryAdded") {
    ReportConsole(FromLogEntry(Field(params, "entry")));
  } else if (const auto message = FromConsoleCall(params)) {
    ReportConsole(*message);
  }
}

void BrowserCore::ReportConsole(const ConsoleMessage& message) {
  const auto handler = client_ ? client_->GetDisplayHandler() : nullptr;
  if (handler && handler->OnConsoleMessage(browser_, message.severity, message.text, message.source,
                                           message.line)) {
    return;
  }
  // As CEF does, what the client has not dealt with goes to the log.
  Log(message.severity, "CONSOLE(" + std::to_string(message.line) + ") \"" + message.text +
                            "\", source: " + message.source);
}

void BrowserCore::OnPageReport(const Json& params) {
  const std::optional<PageReport> report = ParsePageReport(params);
  const auto handler = client_ ? client_->GetDisplayHandler() : nullptr;
  if (!report) {
    return;
  }
  switch (report->kind) {
    case PageReport::Kind::kTitle: {
      const std::string title =
          report->title.empty() ? TitleFromUrl(frames_->main()->url()) : report->title;
      title_ = title;
      view_.SetTitle(title);
      if (handler) {
        handler->OnTitleChange(browser_, title);
      }
      break;
    }
    case PageReport::Kind::kIcons:
      if (handler) {
        handler->OnFaviconURLChange(
            browser_, std::vector<CefString>(report->icons.begin(), report->icons.end()));
      }
      break;
    case PageReport::Kind::kFullscreen:
      ChangeState([&](State& state) { state.fullscreen = report->fullscreen; });
      if (handler) {
        handler->OnFullscreenModeChange(browser_, report->fullscreen);
      }
      break;
  }
}

void BrowserCore::WithHistory(std::function<void()> then) {
  inbox_held_ = true;
  RequestHistory(std::move(then), kHistoryAttempts);
}

void BrowserCore::RequestHistory(std::function<void()> then, int attempts) {
  if (!history_reset_) {
    // The empty document that a page is made with is no place to go back to.
    session_.Send("Page.resetNavigationHistory", Json::object(),
                  [weak = weak_from_this()](const ProtocolReply& reply) {
                    if (const auto core = weak.lock(); core && reply.ok) {
                      core->history_reset_ = true;
                    }
                  });
  }
  session_.Send(
      "Page.getNavigationHistory", Json::object(),
      [weak = weak_from_this(), then = std::move(then), attempts](const ProtocolReply& reply) {
        const auto core = weak.lock();
        if (core && !core->closed_) {
          core->OnHistoryReply(reply, then, attempts);
        }
      });
}

void BrowserCore::OnHistoryReply(const ProtocolReply& reply,
                                 const std::function<void()>& then,
                                 int attempts) {
  const std::shared_ptr<TaskThread> ui = FindEngineThread(TID_UI);
  if ((!reply.ok || !history_reset_) && attempts > 1 && ui) {
    // Refused for a moment while the browser puts the new document in the old one's place.
    ui->PostDelayed(
        [weak = weak_from_this(), then, attempts] {
          if (const auto core = weak.lock(); core && !core->closed_) {
            core->RequestHistory(then, attempts - 1);
          }
        },
        kHistoryRetryDelay);
    return;
  }
  if (!history_reset_) {
    history_reset_ = true;
    hidden_entries_ = 1;
  }
  if (reply.ok) {
    OnHistory(reply.value);
  }
  inbox_held_ = false;
  inbox_.push_front(then);
  RunInbox();
}

void BrowserCore::OnHistory(const Json& history) {
  const int index = IntField(history, "currentIndex");
  const int count = static_cast<int>(Field(history, "entries").size());
  ChangeState([&](State& state) {
    state.can_go_back = index > hidden_entries_;
    state.can_go_forward = index + 1 < count;
  });
}

void BrowserCore::OnFrameStartedNavigating(const Json& params) {
  const std::string frame_id = TextField(params, "frameId");
  const bool is_main = frames_->IsMain(frame_id);
  if (loads_.OnNavigationStarted(frame_id, TextField(params, "loaderId"), TextField(params, "url"),
                                 TextField(params, "navigationType"), is_main)) {
    session_.Send("Page.stopLoading");
    return;
  }
  const PendingNavigation* const pending = loads_.PendingOf(frame_id);
  if (pending && IsForOtherPrograms(pending->url)) {
    AskToExecute(*this, {.frame_id = frame_id,
                         .url = pending->url,
                         .transition = pending->transition,
                         .user_gesture = pending->user_gesture});
  }
}

void BrowserCore::OnRequestPaused(const Json& params) {
  std::string accept_language;
  const bool is_download =
      TextField(params, "resourceType") == "Document" && !download_sources_.OnPaused(params);
  if (TextField(params, "resourceType") == "Document" && !is_download) {
    if (params.contains("responseStatusCode") || params.contains("responseErrorReason")) {
      const std::string reason = TextField(params, "responseErrorReason");
      loads_.OnResponse(TextField(params, "frameId"), IntField(params, "responseStatusCode"),
                        reason.empty() ? ERR_NONE : NetErrorFromReason(reason));
    } else {
      const std::string languages = engine_.accept_languages();
      if (!AskAboutDocument(params)) {
        return;
      }
      if (engine_.accept_languages() != languages) {
        // The client has chosen others just now; this very document is to be asked for in them.
        ApplyUserAgent();
        accept_language = AcceptLanguageHeader(engine_.accept_languages());
      }
    }
  }
  if (requests_) {
    requests_->OnDocumentPaused(params, last_transition_, accept_language, is_download);
    return;
  }
  // A popup with a process of its own is set up only once its first request has its answer.
  session_.SendAtOnce("Fetch.continueRequest", {{"requestId", TextField(params, "requestId")}});
}

DownloadSource BrowserCore::OnDownloadBegins(const std::string& frame_id, const std::string& url) {
  if (const auto frame = frames_->Find(frame_id); frame && requests_) {
    requests_->OnDocumentKept(frame_id, frame->url());
  }
  return download_sources_.Find(url);
}

void BrowserCore::OnCertificateRefused(const std::string& url, cef_errorcode_t error) {
  loads_.OnCertificateRefused(url, error);
}

bool BrowserCore::AskAboutDocument(const Json& params) {
  const std::string frame_id = TextField(params, "frameId");
  const Json& request = Field(params, "request");
  paused_request_ = &request;
  const bool cancelled = loads_.OnRequest(frame_id, RequestUrl(request), frames_->IsMain(frame_id));
  paused_request_ = nullptr;
  if (cancelled) {
    session_.SendAtOnce("Fetch.failRequest", {{"requestId", TextField(params, "requestId")},
                                              {"errorReason", "Aborted"}});
  }
  return !cancelled;
}

void BrowserCore::OnDocumentServed(const std::string& frame_id, int http_status) {
  Post([frame_id, http_status](BrowserCore& core) {
    core.Enqueue([&core, frame_id, http_status] {
      core.loads_.OnResponse(frame_id, http_status, ERR_NONE);
    });
  });
}

void BrowserCore::OnFrameNavigated(const Json& params) {
  const Json frame = Field(params, "frame");
  const std::string parent_id = TextField(frame, "parentId");
  if (parent_id.empty()) {
    committed_loader_ = TextField(frame, "loaderId");
  }
  const auto commit = [this, frame, parent_id] {
    const std::string id = TextField(frame, "id");
    const std::string url = TextField(frame, "url") + TextField(frame, "urlFragment");
    const std::string unreachable = TextField(frame, "unreachableUrl");
    const CefRefPtr<EditionFrame> known = frames_->Touch(id, parent_id);
    for (const std::string& removed : frames_->RemoveBelow(id)) {
      loads_.OnFrameRemoved(removed);
      if (requests_) {
        requests_->OnFrameRemoved(removed);
      }
    }
    known->SetDocument(unreachable.empty() ? url : unreachable, TextField(frame, "name"));
    if (parent_id.empty()) {
      ChangeState([](State& state) { state.has_document = true; });
    }
    loads_.OnCommitted(id, url, unreachable, parent_id.empty());
  };
  if (parent_id.empty()) {
    WithHistory(commit);
  } else {
    commit();
  }
}

void BrowserCore::OnWithinDocument(const Json& params) {
  const std::string frame_id = TextField(params, "frameId");
  const std::string url = TextField(params, "url");
  if (const auto frame = frames_->Find(frame_id)) {
    frame->SetUrl(url);
  }
  if (frames_->IsMain(frame_id)) {
    WithHistory([this, frame_id, url] { loads_.OnAddressChanged(frame_id, url); });
  }
}

CefRefPtr<CefFrame> BrowserCore::FrameFor(const std::string& frame_id) {
  const CefRefPtr<EditionFrame> frame = frames_->Find(frame_id);
  return frame ? frame : frames_->main();
}

void BrowserCore::OnLoadingChanged(bool loading) {
  ChangeState([&](State& state) { state.loading = loading; });
  if (!loading) {
    view_.OnPageLoaded();
  }
  const State now = state();
  if (const auto handler = client_ ? client_->GetLoadHandler() : nullptr) {
    handler->OnLoadingStateChange(browser_, loading, now.can_go_back, now.can_go_forward);
  }
}

bool BrowserCore::OnNavigationStarting(const NavigationRequest& request) {
  last_transition_ = request.transition;
  const auto handler = client_ ? client_->GetRequestHandler() : nullptr;
  if (!handler) {
    return false;
  }
  return handler->OnBeforeBrowse(
      browser_, FrameFor(request.frame_id),
      MakeRequest(request, paused_request_, frames_->IsMain(request.frame_id)),
      request.user_gesture, request.is_redirect);
}

void BrowserCore::OnDocumentStarted(const std::string& frame_id, uint32_t transition) {
  if (const auto handler = client_ ? client_->GetLoadHandler() : nullptr) {
    handler->OnLoadStart(browser_, FrameFor(frame_id),
                         static_cast<cef_transition_type_t>(transition));
  }
}

void BrowserCore::OnUrlChanged(const std::string& frame_id, const std::string& url) {
  if (const auto handler = client_ ? client_->GetDisplayHandler() : nullptr) {
    handler->OnAddressChange(browser_, FrameFor(frame_id), url);
  }
}

void BrowserCore::OnDocumentEnded(const std::string& frame_id, int http_status) {
  if (const auto handler = client_ ? client_->GetLoadHandler() : nullptr) {
    handler->OnLoadEnd(browser_, FrameFor(frame_id), http_status);
  }
}

void BrowserCore::OnLoadFailed(const std::string& frame_id,
                               cef_errorcode_t error,
                               const std::string& url) {
  if (const auto handler = client_ ? client_->GetLoadHandler() : nullptr) {
    handler->OnLoadError(browser_, FrameFor(frame_id), error, NetErrorName(error), url);
  }
}

bool BrowserCore::HadRecentInput() const {
  return last_input_ != std::chrono::steady_clock::time_point() &&
         std::chrono::steady_clock::now() - last_input_ < kGestureLifetime;
}

}  // namespace cefedition
