#include "devtools/resource_requests.h"

#include <utility>
#include <vector>

#include "devtools/browser_core.h"
#include "devtools/credentials.h"
#include "devtools/engine_threads.h"
#include "devtools/handler_choice.h"
#include "devtools/json_fields.h"
#include "devtools/net_error.h"

namespace cefedition {
namespace {

constexpr size_t kRecentIds = 1000;

bool IsDocument(const Json& paused) {
  return TextField(paused, "resourceType") == "Document";
}

bool IsResponse(const Json& paused) {
  return paused.contains("responseStatusCode") || paused.contains("responseErrorReason");
}

// The question to another origin whether a request may be made, which no page can make itself.
bool IsPreflight(const Json& paused) {
  const Json& request = Field(paused, "request");
  return TextField(request, "method") == "OPTIONS" &&
         Field(request, "headers").contains("Access-Control-Request-Method");
}

CefRefPtr<CefRequestContextHandler> ContextHandler(const BrowserCore& core) {
  const CefRefPtr<CefRequestContext> context = core.request_context();
  return context ? context->GetHandler() : nullptr;
}

}  // namespace

/// Joins one request to its page.
class ResourceRequests::Link : public ResourceRequest::Delegate {
 public:
  Link(std::weak_ptr<ResourceRequests> owner, std::string id, std::string frame_id)
      : owner_(std::move(owner)), id_(std::move(id)), frame_id_(std::move(frame_id)) {}

  void Send(const std::string& method,
            Json params,
            std::function<void(const ProtocolReply& reply)> on_reply) override {
    if (const auto owner = owner_.lock()) {
      owner->Send(method, std::move(params), std::move(on_reply));
    }
  }

  void OnDocumentServed(int http_status) override {
    const auto owner = owner_.lock();
    if (const auto core = owner ? owner->core_.lock() : nullptr) {
      core->OnDocumentServed(frame_id_, http_status);
    }
  }

  void OnRequestOver() override {
    if (const auto owner = owner_.lock()) {
      owner->Forget(id_);
    }
  }

  void set_id(const std::string& id) { id_ = id; }

 private:
  const std::weak_ptr<ResourceRequests> owner_;
  std::string id_;
  const std::string frame_id_;
};

void ResourceRequests::Recent::Set(const std::string& id, const std::string& text) {
  if (texts_.insert_or_assign(id, text).second) {
    order_.push_back(id);
  }
  if (order_.size() > kRecentIds) {
    texts_.erase(order_.front());
    order_.pop_front();
  }
}

const std::string* ResourceRequests::Recent::Find(const std::string& id) const {
  const auto found = texts_.find(id);
  return found != texts_.end() ? &found->second : nullptr;
}

std::shared_ptr<ResourceRequests> ResourceRequests::Create(BrowserCore& core) {
  const CefRefPtr<CefClient> client = core.client();
  const bool somebody_asks = (client && client->GetRequestHandler()) || ContextHandler(core);
  return somebody_asks ? std::make_shared<ResourceRequests>(core) : nullptr;
}

ResourceRequests::ResourceRequests(BrowserCore& core)
    : core_(core.weak_from_this()),
      client_handler_(core.client() ? core.client()->GetRequestHandler() : nullptr),
      context_handler_(ContextHandler(core)) {}

bool ResourceRequests::TakeEvent(const std::string& method, const Json& params) {
  if (method == "Network.requestWillBeSent" || method == "Network.responseReceived" ||
      method == "Network.dataReceived" || method == "Network.loadingFinished" ||
      method == "Network.loadingFailed") {
    PostToIo([self = shared_from_this(), method, params] { self->OnNetworkEvent(method, params); });
  } else if (method == "Fetch.requestPaused" && !IsDocument(params)) {
    PostToIo([self = shared_from_this(), params] { self->OnPaused(params, TT_LINK, {}, false); });
    return true;
  } else if (method == "Fetch.authRequired") {
    PostToIo([self = shared_from_this(), params] { self->OnAuthRequired(params); });
    return true;
  } else if (method == "Page.frameNavigated") {
    PostToIo(
        [self = shared_from_this(), frame = Field(params, "frame")] { self->OnDocument(frame); });
  } else if (method == "Page.frameDetached") {
    OnFrameRemoved(TextField(params, "frameId"));
  }
  return method.starts_with("Network.");
}

void ResourceRequests::OnDocumentPaused(const Json& params,
                                        uint32_t transition,
                                        const std::string& accept_language,
                                        bool is_download) {
  PostToIo([self = shared_from_this(), params, transition, accept_language, is_download] {
    self->OnPaused(params, transition, accept_language, is_download);
  });
}

void ResourceRequests::OnDocumentKept(const std::string& frame_id, const std::string& url) {
  PostToIo([self = shared_from_this(), frame_id, url] { self->documents_[frame_id] = url; });
}

void ResourceRequests::OnFrameRemoved(const std::string& frame_id) {
  PostToIo([self = shared_from_this(), frame_id] {
    self->documents_.erase(frame_id);
    self->CancelIf([&](const Entry& entry) { return entry.frame_id == frame_id; });
  });
}

void ResourceRequests::OnCrashed() {
  PostToIo([self = shared_from_this()] { self->CancelIf([](const Entry&) { return true; }); });
}

void ResourceRequests::Close() {
  PostToIo([self = shared_from_this()] {
    self->closed_ = true;
    self->CancelIf([](const Entry&) { return true; });
  });
}

ResourceRequests::Entries::iterator ResourceRequests::FindPaused(const Json& params) {
  const std::string network_id = TextField(params, "networkId");
  if (!network_id.empty()) {
    return entries_.find(network_id);
  }
  const std::string halt_id = TextField(params, "requestId");
  const std::string before_id = TextField(params, "redirectedRequestId");
  auto node = before_id.empty() ? Entries::node_type() : entries_.extract(before_id);
  if (node.empty()) {
    return entries_.find(halt_id);
  }
  node.key() = halt_id;
  node.mapped().link->set_id(halt_id);
  return entries_.insert(std::move(node)).position;
}

bool ResourceRequests::FindOrigin(const Json& params, RequestOrigin& origin) const {
  const auto core = core_.lock();
  origin.browser = core ? core->browser() : nullptr;
  if (!origin.browser) {
    return false;
  }
  const std::string frame_id = TextField(params, "frameId");
  const CefRefPtr<EditionFrame> main = core->frames().main();
  const CefRefPtr<EditionFrame> frame = core->frames().Find(frame_id);
  origin.frame = frame ? frame : main;
  origin.type = ResourceTypeOf(TextField(params, "resourceType"), core->frames().IsMain(frame_id));
  const auto url_of = [this](const std::string& id) {
    const auto found = documents_.find(id);
    return found != documents_.end() ? found->second : std::string();
  };
  origin.first_party = url_of(main->id());
  origin.document = url_of(frame_id);
  if (OriginText(origin.document).empty()) {
    // A document without an address of its own has its page's.
    origin.document = origin.first_party;
  }
  return true;
}

void ResourceRequests::OnPaused(const Json& params,
                                uint32_t transition,
                                const std::string& accept_language,
                                bool is_download) {
  RequestOrigin origin;
  if (closed_ || !FindOrigin(params, origin)) {
    return;
  }
  origin.transition = transition;
  origin.accept_language = accept_language;
  origin.is_download = is_download;
  if (IsDocument(params) && !is_download && params.contains("responseStatusCode")) {
    // Before anything that this document may request; its arrival is announced only later.
    documents_[TextField(params, "frameId")] = TextField(Field(params, "request"), "url");
  }
  const auto found = FindPaused(params);
  if (found != entries_.end()) {
    const std::shared_ptr<ResourceRequest> request = found->second.request;
    if (IsResponse(params)) {
      request->OnResponsePaused(params);
    } else {
      request->OnRedirectPaused(params, origin.accept_language);
    }
    return;
  }
  const std::string network_id = TextField(params, "networkId");
  const std::string halt_id = TextField(params, "requestId");
  if (IsResponse(params) || IsPreflight(params)) {
    Send("Fetch.continueRequest", {{"requestId", halt_id}}, {});
  } else if (ended_.Find(network_id)) {
    // Given up by the page while the halt was on its way.
    Send("Fetch.failRequest", {{"requestId", halt_id}, {"errorReason", "Aborted"}}, {});
  } else {
    Begin(network_id.empty() ? halt_id : network_id, params, origin);
  }
}

void ResourceRequests::Begin(const std::string& id,
                             const Json& params,
                             const RequestOrigin& origin) {
  const CefRefPtr<Request> request =
      ResourceRequest::MakeRequest(params, origin, ResourceRequest::NextIdentifier());
  const bool is_document = IsDocument(params) && !origin.is_download;
  const std::string initiator =
      OriginText(is_document ? request->GetReferrerURL().ToString() : origin.document);
  bool disable_default_handling = false;
  request->SetReadOnly(true);
  const CefRefPtr<CefResourceRequestHandler> handler =
      ChooseHandler(client_handler_, context_handler_, origin.browser, origin.frame, request,
                    is_document, origin.is_download, initiator, disable_default_handling);
  const std::string halt_id = TextField(params, "requestId");
  request->SetReadOnly(false);
  if (!handler) {
    PassBy(halt_id, *request, origin, disable_default_handling);
    return;
  }
  const std::string frame_id = TextField(params, "frameId");
  auto link = std::make_unique<Link>(weak_from_this(), id, frame_id);
  Entry entry;
  entry.link = link.get();
  entry.frame_id = frame_id;
  entry.request =
      std::make_shared<ResourceRequest>(std::move(link), origin, handler, disable_default_handling);
  if (TextField(params, "networkId").empty()) {
    entry.request->SetUnfollowed();
  } else if (const std::string* loader_id = loaders_.Find(id)) {
    SetLoader(entry, id, *loader_id);
  }
  const std::shared_ptr<ResourceRequest> begun = entry.request;
  entries_[id] = std::move(entry);
  begun->OnFirstPaused(params, request);
}

void ResourceRequests::PassBy(const std::string& halt_id,
                              Request& request,
                              const RequestOrigin& origin,
                              bool disable_default_handling) {
  Json params = {{"requestId", halt_id}};
  if (disable_default_handling) {
    params["errorReason"] = "Aborted";
    Send("Fetch.failRequest", std::move(params), {});
    return;
  }
  // The response of a document is of interest to the follower of loads all the same.
  params["interceptResponse"] = origin.type == RT_MAIN_FRAME || origin.type == RT_SUB_FRAME;
  if (!origin.accept_language.empty()) {
    const RequestContent before(request);
    request.SetHeaderByName("Accept-Language", origin.accept_language, /*overwrite=*/true);
    RequestChanges(before, request).AddTo(params);
  }
  Send("Fetch.continueRequest", std::move(params), {});
}

void ResourceRequests::OnAuthRequired(const Json& params) {
  const auto core = core_.lock();
  const CefRefPtr<CefBrowser> browser = core ? core->browser() : nullptr;
  if (!browser) {
    return;
  }
  AskForCredentials(client_handler_, browser, params,
                    [weak = weak_from_this()](const std::string& method, Json answer) {
                      if (const auto self = weak.lock()) {
                        self->Send(method, std::move(answer), {});
                      }
                    });
}

void ResourceRequests::OnNetworkEvent(const std::string& method, const Json& params) {
  const std::string id = TextField(params, "requestId");
  if (method == "Network.requestWillBeSent") {
    OnWillBeSent(id, params);
    return;
  }
  const auto found = entries_.find(id);
  if (found == entries_.end()) {
    if (method == "Network.loadingFailed") {
      ended_.Set(id, {});
    }
    return;
  }
  const std::shared_ptr<ResourceRequest> request = found->second.request;
  if (method == "Network.responseReceived") {
    request->OnResponseHead(IntField(Field(params, "response"), "encodedDataLength"));
  } else if (method == "Network.dataReceived") {
    request->OnData(IntField(params, "dataLength"));
  } else if (method == "Network.loadingFinished") {
    request->OnFinished(IntField(params, "encodedDataLength"));
  } else if (BoolField(params, "canceled")) {
    request->Cancel();
  } else {
    request->OnFailed(NetErrorFromName(TextField(params, "errorText")));
  }
}

void ResourceRequests::OnDocument(const Json& frame) {
  const std::string frame_id = TextField(frame, "id");
  const std::string loader_id = TextField(frame, "loaderId");
  documents_[frame_id] = TextField(frame, "url");
  // What the document before this one still waits for will not come.
  CancelIf([&](const Entry& entry) {
    return entry.frame_id == frame_id && !entry.loader_id.empty() && entry.loader_id != loader_id;
  });
}

void ResourceRequests::OnWillBeSent(const std::string& id, const Json& params) {
  const std::string loader_id = TextField(params, "loaderId");
  loaders_.Set(id, loader_id);
  if (const auto found = entries_.find(id); found != entries_.end()) {
    SetLoader(found->second, id, loader_id);
  }
}

void ResourceRequests::SetLoader(Entry& entry,
                                 const std::string& id,
                                 const std::string& loader_id) {
  if (loader_id.empty()) {
    entry.request->SetUnfollowed();
  } else if (loader_id != id) {
    // The request of a document bears the document's own id.
    entry.loader_id = loader_id;
  }
}

template <typename Predicate>
void ResourceRequests::CancelIf(Predicate ends) {
  // Gathered first: a callback may bring about the end of other requests.
  std::vector<std::shared_ptr<ResourceRequest>> ending;
  for (const auto& [id, entry] : entries_) {
    if (ends(entry)) {
      ending.push_back(entry.request);
      ended_.Set(id, {});
    }
  }
  for (const auto& request : ending) {
    request->Cancel();
  }
}

void ResourceRequests::Forget(const std::string& id) {
  entries_.erase(id);
}

void ResourceRequests::Send(const std::string& method,
                            Json params,
                            std::function<void(const ProtocolReply& reply)> on_reply) {
  const auto core = core_.lock();
  if (!core) {
    return;
  }
  ProtocolConnection::ReplyHandler handler;
  if (on_reply) {
    handler = [on_reply = std::move(on_reply)](const ProtocolReply& reply) {
      PostToIo([on_reply, reply] { on_reply(reply); });
    };
  }
  // Past commands that wait: a page may be set up only once its first request has its answer.
  core->session().SendAtOnce(method, std::move(params), std::move(handler));
}

}  // namespace cefedition
