#include "devtools/resource_request.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <string_view>
#include <utility>

#include "devtools/base64_bytes.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/net_error.h"
#include "devtools/response_filter.h"

namespace cefedition {
namespace {

constexpr int kOk = 200;
constexpr int kPartialContent = 206;
constexpr int kTemporaryRedirect = 307;

// The first byte of a range "bytes=100-"; 0 for all others.
int64_t RangeStart(const std::string& header) {
  constexpr std::string_view kBytes = "bytes=";
  int64_t start = 0;
  if (!header.starts_with(kBytes) || !header.ends_with('-')) {
    return 0;
  }
  const char* const last = header.data() + header.size() - 1;
  const auto [end, error] = std::from_chars(header.data() + kBytes.size(), last, start);
  return error == std::errc() && end == last && start > 0 ? start : 0;
}

}  // namespace

/// The client's answer to `RV_CONTINUE_ASYNC`, from any thread. One that is let go without an
/// answer lets the request go on.
class ResourceRequest::ContinueCallback : public CefCallback {
 public:
  ContinueCallback(std::weak_ptr<ResourceRequest> request, int step)
      : request_(std::move(request)), step_(step) {}
  ~ContinueCallback() override { Give(true); }

  void Continue() override { Give(true); }
  void Cancel() override { Give(false); }

  /// The client has answered otherwise.
  void Disarm() { given_ = true; }

 private:
  void Give(bool go_on) {
    if (!given_.exchange(true)) {
      PostToIo([request = request_, step = step_, go_on] {
        if (const auto self = request.lock()) {
          self->OnDecision(step, go_on);
        }
      });
    }
  }

  const std::weak_ptr<ResourceRequest> request_;
  const int step_;
  std::atomic<bool> given_{false};

  IMPLEMENT_REFCOUNTING(ContinueCallback);
};

ResourceRequest::ResourceRequest(std::unique_ptr<Delegate> delegate,
                                 RequestOrigin origin,
                                 CefRefPtr<CefResourceRequestHandler> handler,
                                 bool disable_default_handling)
    : delegate_(std::move(delegate)),
      origin_(std::move(origin)),
      handler_(handler),
      disable_default_handling_(disable_default_handling) {}

uint64_t ResourceRequest::NextIdentifier() {
  static std::atomic<uint64_t> last{0};
  return ++last;
}

CefRefPtr<Request> ResourceRequest::MakeRequest(const Json& paused,
                                                const RequestOrigin& origin,
                                                uint64_t identifier) {
  CefRefPtr<Request> request = RequestFromProtocol(Field(paused, "request"));
  request->SetResourceType(origin.type);
  request->SetTransitionType(static_cast<cef_transition_type_t>(origin.transition));
  request->SetFirstPartyForCookies(origin.type == RT_MAIN_FRAME ? request->GetURL()
                                                                : CefString(origin.first_party));
  request->SetIdentifier(identifier);
  return request;
}

void ResourceRequest::OnFirstPaused(const Json& paused, CefRefPtr<Request> request) {
  ++step_;
  fetch_id_ = TextField(paused, "requestId");
  network_id_ = TextField(paused, "networkId");
  request_ = request;
  request_->SetReadOnly(false);
  if (!BoolField(Field(paused, "request"), "hasPostData") || request_->GetPostData()) {
    OnBodyKnown();
    return;
  }
  // The page's process keeps a body that was not told with the request.
  delegate_->Send("Network.getRequestPostData", {{"requestId", network_id_}},
                  [weak = weak_from_this(), step = step_](const ProtocolReply& reply) {
                    const auto self = weak.lock();
                    if (!self || self->over_ || self->step_ != step) {
                      return;
                    }
                    const std::string text = TextField(reply.value, "postData");
                    if (BoolField(reply.value, "base64Encoded")) {
                      const std::vector<uint8_t> bytes = DecodeBase64(text);
                      AddBodyBytes(*self->request_, bytes.data(), bytes.size());
                    } else if (!text.empty()) {
                      AddBodyBytes(*self->request_, text.data(), text.size());
                    }
                    self->OnBodyKnown();
                  });
}

void ResourceRequest::OnRedirectPaused(const Json& paused, const std::string& accept_language) {
  ++step_;
  origin_.accept_language = accept_language;
  fetch_id_ = TextField(paused, "requestId");
  response_ = nullptr;
  request_ = MakeRequest(paused, origin_, request_->GetIdentifier());
  OnBodyKnown();
}

void ResourceRequest::OnBodyKnown() {
  original_.emplace(*request_);
  std::exchange(carried_, {}).ApplyTo(*request_);
  if (!origin_.accept_language.empty()) {
    request_->SetHeaderByName("Accept-Language", origin_.accept_language, /*overwrite=*/true);
  }
  AskBeforeLoad();
}

void ResourceRequest::AskBeforeLoad() {
  const std::shared_ptr<ResourceRequest> alive = shared_from_this();
  asked_ = true;
  const int step = ++step_;
  request_->SetReadOnly(true);
  handler_->GetCookieAccessFilter(origin_.browser, origin_.frame, request_);
  request_->SetReadOnly(false);
  const CefRefPtr<ContinueCallback> callback = new ContinueCallback(weak_from_this(), step);
  const cef_return_value_t answer =
      handler_->OnBeforeResourceLoad(origin_.browser, origin_.frame, request_, callback);
  if (answer != RV_CONTINUE_ASYNC) {
    callback->Disarm();
    OnDecision(step, answer == RV_CONTINUE);
  }
}

void ResourceRequest::OnDecision(int step, bool go_on) {
  if (over_ || step != step_) {
    return;
  }
  ++step_;
  if (go_on) {
    GoOn();
    return;
  }
  Fail();
  Finish(UR_CANCELED, ERR_ABORTED, 0);
}

void ResourceRequest::GoOn() {
  const std::shared_ptr<ResourceRequest> alive = shared_from_this();
  const std::string url = request_->GetURL().ToString();
  RequestChanges changes(*original_, *request_);
  if (url != original_->url) {
    carried_ = std::move(changes);
    RedirectByClient();
    return;
  }
  request_->SetReadOnly(true);
  if (const CefRefPtr<CefResourceHandler> served =
          handler_->GetResourceHandler(origin_.browser, origin_.frame, request_)) {
    Serve(served);
    return;
  }
  if (disable_default_handling_) {
    Fail();
    Finish(UR_CANCELED, ERR_ABORTED, 0);
    return;
  }
  Json params = {{"interceptResponse", true}};
  changes.AddTo(params);
  Continue(std::move(params));
}

// The client has written another URL into the request. As in CEF, that is a redirect, of which the
// client hears as of any other.
void ResourceRequest::RedirectByClient() {
  const std::string url = request_->GetURL().ToString();
  if (url.empty()) {
    Fail();
    Finish(UR_FAILED, ERR_INVALID_URL, 0);
    return;
  }
  request_->SetURL(original_->url);
  request_->SetReadOnly(true);
  response_ =
      MakeResponse(kTemporaryRedirect, "Internal Redirect", {{"Location", url}}, original_->url);
  Redirect(AskAboutRedirect(url));
}

void ResourceRequest::Redirect(const std::string& url) {
  if (url.empty()) {
    Fail();
    Finish(UR_FAILED, ERR_INVALID_URL, 0);
    return;
  }
  Json headers = Json::array({{{"name", "Location"}, {"value", url}}});
  // A page that asks another origin must be allowed to follow.
  if (const std::string origin = request_->GetHeaderByName("Origin").ToString(); !origin.empty()) {
    headers.push_back({{"name", "Access-Control-Allow-Origin"}, {"value", origin}});
    headers.push_back({{"name", "Access-Control-Allow-Credentials"}, {"value", "true"}});
  }
  // Without a body, the browser would put only the headers in the place of a response that it has.
  Decide("Fetch.fulfillRequest", {{"responseCode", kTemporaryRedirect},
                                  {"responseHeaders", std::move(headers)},
                                  {"body", EncodeBase64("redirected")}});
}

void ResourceRequest::Serve(CefRefPtr<CefResourceHandler> handler) {
  reader_ = std::make_shared<ResourceHandlerReader>(handler, request_);
  reader_->Open([weak = weak_from_this()](const ResourceHandlerReader::Head& head) {
    if (const auto self = weak.lock(); self && !self->over_) {
      self->OnServedHead(head);
    }
  });
}

void ResourceRequest::OnServedHead(const ResourceHandlerReader::Head& head) {
  if (head.error != ERR_NONE) {
    Fail();
    Finish(head.error == ERR_ABORTED ? UR_CANCELED : UR_FAILED, head.error, 0);
    return;
  }
  const std::string url = request_->GetURL().ToString();
  CefResponse::HeaderMap headers;
  head.response->GetHeaderMap(headers);
  int status = head.response->GetStatus() > 0 ? head.response->GetStatus() : kOk;
  if (!head.redirect_url.empty()) {
    status = status == kOk ? kTemporaryRedirect : status;
    std::erase_if(headers, [](const auto& header) { return header.first == "Location"; });
    headers.emplace("Location", head.redirect_url);
  }
  const std::string range = request_->GetHeaderByName("Range").ToString();
  if (const int64_t start = RangeStart(range); status == kOk && start > 0) {
    range_start_ = start;
    status = kPartialContent;
    if (head.length > range_start_) {
      headers.emplace("Content-Range", "bytes " + std::to_string(range_start_) + "-" +
                                           std::to_string(head.length - 1) + "/" +
                                           std::to_string(head.length));
    }
  }
  const std::string mime_type = head.response->GetMimeType().ToString();
  const std::string charset = head.response->GetCharset().ToString();
  if (head.response->GetHeaderByName("Content-Type").empty() && !mime_type.empty()) {
    headers.emplace("Content-Type",
                    charset.empty() ? mime_type : mime_type + "; charset=" + charset);
  }
  response_ = MakeResponse(status, head.response->GetStatusText().ToString(), headers, url);
  if (const std::string target = RedirectTarget(*response_); !target.empty()) {
    reader_->Cancel();
    Redirect(AskAboutRedirect(target));
    return;
  }
  if (AskAboutResponse()) {
    reader_->Cancel();
    return;
  }
  TakeFilter();
  reader_->Read(range_start_,
                [weak = weak_from_this()](cef_errorcode_t error, const std::string& body) {
                  if (const auto self = weak.lock(); self && !self->over_) {
                    self->OnServedBody(error, body);
                  }
                });
}

void ResourceRequest::OnServedBody(cef_errorcode_t error, std::string body) {
  std::optional<std::string> filtered = std::move(body);
  if (error == ERR_NONE && filter_) {
    filtered = FilterBody(*filter_, std::move(*filtered));
    error = filtered ? ERR_NONE : ERR_CONTENT_DECODING_FAILED;
  }
  if (error != ERR_NONE) {
    Fail();
    Finish(UR_FAILED, error, 0);
    return;
  }
  if (origin_.type == RT_MAIN_FRAME || origin_.type == RT_SUB_FRAME) {
    delegate_->OnDocumentServed(response_->GetStatus());
  }
  Fulfil(*filtered);
}

std::string ResourceRequest::AskAboutRedirect(const std::string& target) {
  CefString new_url = target;
  handler_->OnResourceRedirect(origin_.browser, origin_.frame, request_, response_, new_url);
  return ResolveAgainst(request_->GetURL().ToString(), new_url.ToString());
}

bool ResourceRequest::AskAboutResponse() {
  const RequestContent before(*request_);
  request_->SetReadOnly(false);
  const bool again =
      handler_->OnResourceResponse(origin_.browser, origin_.frame, request_, response_);
  request_->SetReadOnly(true);
  if (again) {
    carried_ = RequestChanges(before, *request_);
    Redirect(request_->GetURL().ToString());
  }
  return again;
}

bool ResourceRequest::TakeFilter() {
  filter_ =
      handler_->GetResourceResponseFilter(origin_.browser, origin_.frame, request_, response_);
  if (filter_ && !filter_->InitFilter()) {
    filter_ = nullptr;
  }
  return filter_ != nullptr;
}

void ResourceRequest::OnResponsePaused(const Json& paused) {
  const std::shared_ptr<ResourceRequest> alive = shared_from_this();
  ++step_;
  fetch_id_ = TextField(paused, "requestId");
  if (paused.contains("responseErrorReason")) {
    Continue(Json::object());
    if (unfollowed_) {
      OnFailed(NetErrorFromReason(TextField(paused, "responseErrorReason")));
    }
    return;
  }
  response_ = ResponseFromProtocol(paused, request_->GetURL().ToString());
  if (const std::string target = RedirectTarget(*response_); !target.empty()) {
    const std::string wanted = AskAboutRedirect(target);
    Json params = Json::object();
    if (!wanted.empty() && wanted != target) {
      params["url"] = wanted;
    }
    Continue(std::move(params));
    return;
  }
  if (AskAboutResponse()) {
    return;
  }
  if (TakeFilter()) {
    FilterNetworkBody();
    return;
  }
  Continue(Json::object());
  if (unfollowed_) {
    int64_t length = 0;
    const std::string text = response_->GetHeaderByName("Content-Length").ToString();
    std::from_chars(text.data(), text.data() + text.size(), length);
    Finish(UR_SUCCESS, ERR_NONE, length);
  }
}

void ResourceRequest::FilterNetworkBody() {
  delegate_->Send("Fetch.getResponseBody", {{"requestId", fetch_id_}},
                  [weak = weak_from_this(), step = step_](const ProtocolReply& reply) {
                    const auto self = weak.lock();
                    if (!self || self->over_ || self->step_ != step) {
                      return;
                    }
                    std::string body = TextField(reply.value, "body");
                    if (BoolField(reply.value, "base64Encoded")) {
                      const std::vector<uint8_t> bytes = DecodeBase64(body);
                      body.assign(bytes.begin(), bytes.end());
                    }
                    const auto filtered =
                        reply.ok ? FilterBody(*self->filter_, std::move(body)) : std::nullopt;
                    if (filtered) {
                      self->Fulfil(*filtered);
                    } else {
                      self->Fail();
                      self->Finish(UR_FAILED, ERR_CONTENT_DECODING_FAILED, 0);
                    }
                  });
}

void ResourceRequest::Fulfil(const std::string& body) {
  CefResponse::HeaderMap headers;
  response_->GetHeaderMap(headers);
  // The body is decoded by now, and its length may be another.
  Json list = HeadersToProtocol(headers, /*unique_names=*/false);
  for (const char* name : {"content-encoding", "content-length", "transfer-encoding"}) {
    list.erase(std::remove_if(list.begin(), list.end(),
                              [&](const Json& header) {
                                return _stricmp(TextField(header, "name").c_str(), name) == 0;
                              }),
               list.end());
  }
  Json params = {{"responseCode", response_->GetStatus()},
                 {"responseHeaders", std::move(list)},
                 {"body", EncodeBase64(body)}};
  if (const std::string phrase = response_->GetStatusText().ToString(); !phrase.empty()) {
    params["responsePhrase"] = phrase;
  }
  Decide("Fetch.fulfillRequest", std::move(params));
  if (unfollowed_) {
    Finish(UR_SUCCESS, ERR_NONE, static_cast<int64_t>(body.size()));
  }
}

void ResourceRequest::Continue(Json params) {
  Decide("Fetch.continueRequest", std::move(params));
}

void ResourceRequest::Fail() {
  Decide("Fetch.failRequest", {{"errorReason", "Aborted"}});
}

void ResourceRequest::Decide(const std::string& method, Json params) {
  ++step_;
  params["requestId"] = fetch_id_;
  if (method == "Fetch.failRequest") {
    delegate_->Send(method, std::move(params), {});
    return;
  }
  // The browser refuses, say, a header that none may set; the request must not wait for ever.
  delegate_->Send(method, std::move(params),
                  [weak = weak_from_this(), step = step_](const ProtocolReply& reply) {
                    const auto self = weak.lock();
                    if (self && !reply.ok && !self->over_ && self->step_ == step) {
                      self->Fail();
                    }
                  });
}

void ResourceRequest::OnFinished(int64_t encoded_length) {
  const bool head_known = head_length_ > 0 && encoded_length >= head_length_;
  Finish(UR_SUCCESS, ERR_NONE, head_known ? encoded_length - head_length_ : received_);
}

void ResourceRequest::OnFailed(cef_errorcode_t error) {
  Finish(error == ERR_ABORTED ? UR_CANCELED : UR_FAILED, error, received_);
}

void ResourceRequest::Finish(cef_urlrequest_status_t status,
                             cef_errorcode_t error,
                             int64_t length) {
  if (std::exchange(over_, true)) {
    return;
  }
  const std::shared_ptr<ResourceRequest> alive = shared_from_this();
  ++step_;
  if (reader_) {
    reader_->Cancel();
  }
  if (asked_) {
    CefRefPtr<Response> response = response_ ? response_ : CefRefPtr<Response>(new Response);
    response->SetReadOnly(false);
    response->SetError(error);
    response->SetReadOnly(true);
    request_->SetReadOnly(true);
    handler_->OnResourceLoadComplete(origin_.browser, origin_.frame, request_, response, status,
                                     length);
  }
  delegate_->OnRequestOver();
}

}  // namespace cefedition
