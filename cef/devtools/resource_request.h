#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "devtools/request_content.h"
#include "devtools/resource_handler_reader.h"
#include "include/cef_resource_request_handler.h"

namespace cefedition {

/// Where a request comes from and what it is for.
struct RequestOrigin {
  CefRefPtr<CefBrowser> browser;
  CefRefPtr<CefFrame> frame;
  /// The URLs of the page and of the document that asks.
  std::string first_party;
  std::string document;
  cef_resource_type_t type = RT_SUB_RESOURCE;
  /// A `cef_transition_type_t` with its flags.
  uint32_t transition = TT_LINK;
  /// What is to be sent as "Accept-Language"; empty for what the page sends.
  std::string accept_language;
  /// What answers is saved, whatever it is, and shown nowhere.
  bool is_download = false;
};

/// One request on its way through the client's `CefResourceRequestHandler`: from its first halt
/// before it is sent, by way of its redirects, to the one call of `OnResourceLoadComplete`.
/// IO thread.
class ResourceRequest : public std::enable_shared_from_this<ResourceRequest> {
 public:
  /// What the request needs of its browser.
  class Delegate {
   public:
    virtual ~Delegate() = default;
    /// Sends a command to the page. `on_reply` may be empty; it runs on the IO thread.
    virtual void Send(const std::string& method,
                      Json params,
                      std::function<void(const ProtocolReply& reply)> on_reply) = 0;
    /// A document comes from a handler of the client's and not from a server.
    virtual void OnDocumentServed(int http_status) = 0;
    /// `OnResourceLoadComplete` was called.
    virtual void OnRequestOver() = 0;
  };

  ResourceRequest(std::unique_ptr<Delegate> delegate,
                  RequestOrigin origin,
                  CefRefPtr<CefResourceRequestHandler> handler,
                  bool disable_default_handling);

  /// The request's CEF object, with the properties that the engine sets.
  static CefRefPtr<Request> MakeRequest(const Json& paused,
                                        const RequestOrigin& origin,
                                        uint64_t identifier);
  /// A new one.
  static uint64_t NextIdentifier();

  /// Halted before it is sent: for the first time, with the object that the handler was asked for
  /// with, or after a redirect.
  void OnFirstPaused(const Json& paused, CefRefPtr<Request> request);
  void OnRedirectPaused(const Json& paused, const std::string& accept_language);
  /// Halted with the head of its response, or with the error that it failed with.
  void OnResponsePaused(const Json& paused);
  /// Nobody will report the end of the request: it counts as over when its response is there.
  void SetUnfollowed() { unfollowed_ = true; }

  // The network's reports.
  void OnResponseHead(int64_t encoded_length) { head_length_ = encoded_length; }
  void OnData(int64_t length) { received_ += length; }
  void OnFinished(int64_t encoded_length);
  void OnFailed(cef_errorcode_t error);

  /// Nothing more will be heard of the request.
  void Cancel() { OnFailed(ERR_ABORTED); }

 private:
  class ContinueCallback;

  void OnBodyKnown();
  void AskBeforeLoad();
  void OnDecision(int step, bool go_on);
  void GoOn();
  void Redirect(const std::string& url);
  void RedirectByClient();

  void Serve(CefRefPtr<CefResourceHandler> handler);
  void OnServedHead(const ResourceHandlerReader::Head& head);
  void OnServedBody(cef_errorcode_t error, std::string body);
  /// Tells the client of `response_`, which redirects to `target`. Answers where the request is to
  /// go in the end, empty for a URL of the client's that is none.
  std::string AskAboutRedirect(const std::string& target);
  /// The response is there. True when the client has the request made again.
  bool AskAboutResponse();
  bool TakeFilter();
  void FilterNetworkBody();
  void Fulfil(const std::string& body);

  void Continue(Json params);
  void Fail();
  /// Sends what decides the present halt.
  void Decide(const std::string& method, Json params);
  void Finish(cef_urlrequest_status_t status, cef_errorcode_t error, int64_t length);

  const std::unique_ptr<Delegate> delegate_;
  RequestOrigin origin_;
  const CefRefPtr<CefResourceRequestHandler> handler_;
  const bool disable_default_handling_;

  CefRefPtr<Request> request_;
  CefRefPtr<Response> response_;
  /// The request as it came from the page, before the client had its say.
  std::optional<RequestContent> original_;
  /// What the client has changed and the browser forgets when it follows a redirect of ours.
  RequestChanges carried_;
  std::shared_ptr<ResourceHandlerReader> reader_;
  CefRefPtr<CefResponseFilter> filter_;

  std::string fetch_id_;
  std::string network_id_;
  /// Counts the halts and decisions, so that a late answer finds no other halt to decide.
  int step_ = 0;
  bool asked_ = false;
  bool over_ = false;
  bool unfollowed_ = false;
  int64_t head_length_ = 0;
  int64_t received_ = 0;
  /// The client's own response, when it is only a part of the resource.
  int64_t range_start_ = 0;
};

}  // namespace cefedition
