// Asks the providers of a resource manager one after the other for each request. Everything happens
// on the IO thread; calls from elsewhere are posted there.

#include "include/wrapper/cef_resource_manager.h"

#include <algorithm>
#include <utility>

#include "include/cef_parser.h"
#include "include/wrapper/cef_stream_resource_handler.h"

struct CefResourceManager::ProviderEntry {
  std::unique_ptr<Provider> provider;
  int order = 0;
  std::string identifier;
  // Requests that the provider has taken.
  RequestList pending;
};

// One request on its way through the providers.
struct CefResourceManager::RequestState {
  // However a request ends, it must not be left waiting.
  ~RequestState() { Continue(); }

  void Continue() {
    if (const CefRefPtr<CefCallback> waiting = std::exchange(callback, nullptr)) {
      waiting->Continue();
    }
  }

  base::WeakPtr<CefResourceManager> manager;
  RequestParams params;
  // Null once the request goes on.
  CefRefPtr<CefCallback> callback;
  // The provider that was asked last.
  std::shared_ptr<ProviderEntry> asked;
};

namespace {

class ContentProvider final : public CefResourceManager::Provider {
 public:
  ContentProvider(std::string url, std::string content, std::string mime_type)
      : url_(std::move(url)), content_(std::move(content)), mime_type_(std::move(mime_type)) {}

  bool OnRequest(scoped_refptr<CefResourceManager::Request> request) override {
    const std::string url = request->url();
    if (url != url_) {
      return false;
    }
    const std::string mime_type =
        mime_type_.empty() ? request->mime_type_resolver().Run(url) : mime_type_;
    request->Continue(new CefStreamResourceHandler(
        mime_type, CefStreamReader::CreateForData(content_.data(), content_.size())));
    return true;
  }

 private:
  const std::string url_;
  std::string content_;
  const std::string mime_type_;
};

std::string WithoutTail(const std::string& url) {
  return url.substr(0, url.find_first_of("?#"));
}

std::string SameUrl(const std::string& url) {
  return url;
}

std::string MimeTypeByExtension(const std::string& url) {
  const size_t dot = url.rfind('.');
  const std::string mime_type =
      dot == std::string::npos ? std::string() : CefGetMimeType(url.substr(dot + 1)).ToString();
  return mime_type.empty() ? "text/html" : mime_type;
}

}  // namespace

CefResourceManager::Request::Request(RequestParams params, std::shared_ptr<RequestState> state)
    : params_(std::move(params)), state_(std::move(state)) {}

CefResourceManager::Request::~Request() = default;

void CefResourceManager::Request::Continue(CefRefPtr<CefResourceHandler> handler) {
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&Request::Continue, this, handler));
    return;
  }
  // Given up first: from here on the provider hears no more about the request.
  const std::shared_ptr<RequestState> state = std::exchange(state_, nullptr);
  if (state && state->manager) {
    // Posted, so that a provider may answer from inside OnRequest.
    CefPostTask(TID_IO,
                base::BindOnce(&CefResourceManager::Answer, state->manager, state, false, handler));
  }
}

void CefResourceManager::Request::Stop() {
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&Request::Stop, this));
    return;
  }
  const std::shared_ptr<RequestState> state = std::exchange(state_, nullptr);
  if (state && state->manager) {
    CefPostTask(TID_IO, base::BindOnce(&CefResourceManager::Answer, state->manager, state, true,
                                       CefRefPtr<CefResourceHandler>()));
  }
}

CefResourceManager::CefResourceManager()
    : url_filter_(base::BindRepeating(&SameUrl)),
      mime_type_resolver_(base::BindRepeating(&MimeTypeByExtension)) {}

CefResourceManager::~CefResourceManager() {
  while (!providers_.empty()) {
    Remove(providers_.begin());
  }
}

void CefResourceManager::AddContentProvider(const std::string& url,
                                            const std::string& content,
                                            const std::string& mime_type,
                                            int order,
                                            const std::string& identifier) {
  if (!url.empty()) {
    AddProvider(new ContentProvider(url, content, mime_type), order, identifier);
  }
}

void CefResourceManager::AddProvider(Provider* provider, int order, const std::string& identifier) {
  if (!provider) {
    return;
  }
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&CefResourceManager::AddProvider, this,
                                       base::Unretained(provider), order, identifier));
    return;
  }
  auto entry = std::make_shared<ProviderEntry>();
  entry->provider.reset(provider);
  entry->order = order;
  entry->identifier = identifier;
  const auto after = std::find_if(providers_.begin(), providers_.end(),
                                  [&](const auto& other) { return other->order > order; });
  providers_.insert(after, std::move(entry));
}

void CefResourceManager::RemoveProviders(const std::string& identifier) {
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&CefResourceManager::RemoveProviders, this, identifier));
    return;
  }
  for (auto entry = providers_.begin(); entry != providers_.end();) {
    const auto next = std::next(entry);
    if ((*entry)->identifier == identifier) {
      Remove(entry);
    }
    entry = next;
  }
}

void CefResourceManager::RemoveAllProviders() {
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&CefResourceManager::RemoveAllProviders, this));
    return;
  }
  while (!providers_.empty()) {
    Remove(providers_.begin());
  }
}

void CefResourceManager::SetUrlFilter(const UrlFilter& filter) {
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&CefResourceManager::SetUrlFilter, this, filter));
    return;
  }
  url_filter_ = filter ? filter : base::BindRepeating(&SameUrl);
}

void CefResourceManager::SetMimeTypeResolver(const MimeTypeResolver& resolver) {
  if (!CefCurrentlyOn(TID_IO)) {
    CefPostTask(TID_IO, base::BindOnce(&CefResourceManager::SetMimeTypeResolver, this, resolver));
    return;
  }
  mime_type_resolver_ = resolver ? resolver : base::BindRepeating(&MimeTypeByExtension);
}

cef_return_value_t CefResourceManager::OnBeforeResourceLoad(CefRefPtr<CefBrowser> browser,
                                                            CefRefPtr<CefFrame> frame,
                                                            CefRefPtr<CefRequest> request,
                                                            CefRefPtr<CefCallback> callback) {
  CEF_REQUIRE_IO_THREAD();
  const auto state = std::make_shared<RequestState>();
  state->manager = weak_ptr_factory_.GetWeakPtr();
  state->params = {url_filter_.Run(WithoutTail(request->GetURL())),
                   browser,
                   frame,
                   request,
                   url_filter_,
                   mime_type_resolver_};
  state->callback = callback;
  if (AskNext(state)) {
    return RV_CONTINUE_ASYNC;
  }
  state->callback = nullptr;
  return RV_CONTINUE;
}

CefRefPtr<CefResourceHandler> CefResourceManager::GetResourceHandler(
    CefRefPtr<CefBrowser>,
    CefRefPtr<CefFrame>,
    CefRefPtr<CefRequest> request) {
  CEF_REQUIRE_IO_THREAD();
  auto found = found_.extract(request->GetIdentifier());
  return found ? found.mapped() : nullptr;
}

// True when a provider after the one asked last takes the request.
bool CefResourceManager::AskNext(const std::shared_ptr<RequestState>& state) {
  auto entry = providers_.begin();
  if (state->asked) {
    entry = std::find(providers_.begin(), providers_.end(), state->asked);
    entry = entry == providers_.end() ? entry : std::next(entry);
  }
  // Kept by itself, because a provider may add and remove providers.
  const std::vector<std::shared_ptr<ProviderEntry>> rest(entry, providers_.end());
  for (const std::shared_ptr<ProviderEntry>& next : rest) {
    const scoped_refptr<Request> request(new Request(state->params, state));
    state->asked = next;
    next->pending.push_back(request);
    if (next->provider->OnRequest(request)) {
      return true;
    }
    next->pending.remove(request);
    request->state_ = nullptr;
  }
  return false;
}

void CefResourceManager::Answer(const std::shared_ptr<RequestState>& state,
                                bool stop,
                                CefRefPtr<CefResourceHandler> handler) {
  state->asked->pending.remove_if(
      [&](const scoped_refptr<Request>& request) { return !request->state_; });
  if (handler || stop || !AskNext(state)) {
    Finish(state, handler);
  }
}

void CefResourceManager::Finish(const std::shared_ptr<RequestState>& state,
                                CefRefPtr<CefResourceHandler> handler) {
  if (handler) {
    found_[state->params.request_->GetIdentifier()] = handler;
  }
  state->Continue();
}

void CefResourceManager::Remove(Providers::iterator position) {
  const std::shared_ptr<ProviderEntry> entry = *position;
  providers_.erase(position);
  for (const scoped_refptr<Request>& request : RequestList(entry->pending)) {
    // Null for a request that was answered but whose answer is still on its way.
    if (const std::shared_ptr<RequestState> state = std::exchange(request->state_, nullptr)) {
      entry->provider->OnRequestCanceled(request);
      Finish(state, nullptr);
    }
  }
}
