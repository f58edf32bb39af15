// include/wrapper/cef_resource_manager.h of CEF 123, as far as it is
// used here: serving requests from providers.
#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>

#include "include/base/cef_callback.h"
#include "include/base/cef_ref_counted.h"
#include "include/base/cef_weak_ptr.h"
#include "include/cef_request_handler.h"
#include "include/wrapper/cef_closure_task.h"
#include "include/wrapper/cef_helpers.h"

// Asks providers, in order, for the handler of each request; a request that none serves goes to
// the network. May be made on any thread; deleted on the IO thread, where OnBeforeResourceLoad and
// GetResourceHandler are called. The other methods may be called on any thread.
class CefResourceManager
    : public base::RefCountedThreadSafe<CefResourceManager, CefDeleteOnIOThread> {
 public:
  // Returns the URL that providers see in place of |url|.
  using UrlFilter = base::RepeatingCallback<std::string(const std::string& /*url*/)>;
  // Returns the MIME type for a URL.
  using MimeTypeResolver = base::RepeatingCallback<std::string(const std::string& /*url*/)>;

 private:
  struct RequestParams {
    std::string url_;
    CefRefPtr<CefBrowser> browser_;
    CefRefPtr<CefFrame> frame_;
    CefRefPtr<CefRequest> request_;
    UrlFilter url_filter_;
    MimeTypeResolver mime_type_resolver_;
  };
  struct RequestState;

 public:
  // One request put to one provider. A provider that takes it calls Continue or Stop once, at once
  // or later, on any thread.
  class Request : public base::RefCountedThreadSafe<Request> {
   public:
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    // Without query and fragment, after the filter.
    std::string url() const { return params_.url_; }
    CefRefPtr<CefBrowser> browser() const { return params_.browser_; }
    CefRefPtr<CefFrame> frame() const { return params_.frame_; }
    CefRefPtr<CefRequest> request() const { return params_.request_; }
    const CefResourceManager::UrlFilter& url_filter() const { return params_.url_filter_; }
    const CefResourceManager::MimeTypeResolver& mime_type_resolver() const {
      return params_.mime_type_resolver_;
    }

    // Serves the request by |handler|; null passes it to the next provider.
    void Continue(CefRefPtr<CefResourceHandler> handler);
    // Sends the request to the network without asking further providers.
    void Stop();

   private:
    friend class base::RefCountedThreadSafe<Request>;
    friend struct base::DefaultRefCountedThreadSafeTraits<Request>;
    friend class CefResourceManager;

    Request(RequestParams params, std::shared_ptr<RequestState> state);
    ~Request();

    RequestParams params_;
    std::shared_ptr<RequestState> state_;
  };
  using RequestList = std::list<scoped_refptr<Request>>;

  // Serves requests. Called on the IO thread.
  class Provider {
   public:
    // Returns true to take the request.
    virtual bool OnRequest(scoped_refptr<Request> request) = 0;
    // Called when a request that was taken is over before the provider has finished it.
    virtual void OnRequestCanceled(scoped_refptr<Request> /*request*/) {}

    virtual ~Provider() = default;
  };

  CefResourceManager();
  CefResourceManager(const CefResourceManager&) = delete;
  CefResourceManager& operator=(const CefResourceManager&) = delete;

  // Serves |content| for exactly |url|. An empty |mime_type| is taken from the URL.
  void AddContentProvider(const std::string& url,
                          const std::string& content,
                          const std::string& mime_type,
                          int order,
                          const std::string& identifier);

  // Adds a provider, which the manager then owns. The lowest |order| is asked first, among equals
  // the one added first. |identifier| need not be unique.
  void AddProvider(Provider* provider, int order, const std::string& identifier);

  // Remove and delete providers; their pending requests go to the network.
  void RemoveProviders(const std::string& identifier);
  void RemoveAllProviders();

  // Both apply to requests that come afterwards.
  void SetUrlFilter(const UrlFilter& filter);
  void SetMimeTypeResolver(const MimeTypeResolver& resolver);

  // To be called from the resource-request handler's callbacks of the same names.
  cef_return_value_t OnBeforeResourceLoad(CefRefPtr<CefBrowser> browser,
                                          CefRefPtr<CefFrame> frame,
                                          CefRefPtr<CefRequest> request,
                                          CefRefPtr<CefCallback> callback);
  CefRefPtr<CefResourceHandler> GetResourceHandler(CefRefPtr<CefBrowser> browser,
                                                   CefRefPtr<CefFrame> frame,
                                                   CefRefPtr<CefRequest> request);

 private:
  friend struct CefDeleteOnThread<TID_IO>;
  friend class base::RefCountedThreadSafe<CefResourceManager, CefDeleteOnIOThread>;
  struct ProviderEntry;
  using Providers = std::list<std::shared_ptr<ProviderEntry>>;

  ~CefResourceManager();

  bool AskNext(const std::shared_ptr<RequestState>& state);
  void Finish(const std::shared_ptr<RequestState>& state, CefRefPtr<CefResourceHandler> handler);
  void Remove(Providers::iterator entry);
  void Answer(const std::shared_ptr<RequestState>& state,
              bool stop,
              CefRefPtr<CefResourceHandler> handler);

  // In order of asking.
  Providers providers_;
  // The handlers found for requests, by request identifier, until GetResourceHandler takes them.
  std::map<uint64_t, CefRefPtr<CefResourceHandler>> found_;
  UrlFilter url_filter_;
  MimeTypeResolver mime_type_resolver_;

  base::WeakPtrFactory<CefResourceManager> weak_ptr_factory_{this};
};
