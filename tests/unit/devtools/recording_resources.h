#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "event_log.h"
#include "include/cef_resource_request_handler.h"

namespace cefedition {

/// Path, query and fragment of a URL.
std::string PathOf(const CefString& url);

/// The body of a request, its elements separated by "|"; "none" for none.
std::string BodyOf(CefRefPtr<CefRequest> request);

/// A resource request handler that writes down what it hears, and answers as the test says. Each
/// text names the callback and the request's path.
class RecordingResources : public CefResourceRequestHandler {
 public:
  explicit RecordingResources(EventLog* log) : log_(log) {}

  // What the callbacks answer, each set before the first browser or while no request is made.
  std::function<ReturnValue(CefRefPtr<CefRequest>, CefRefPtr<CefCallback>)> before_load;
  std::function<CefRefPtr<CefResourceHandler>(CefRefPtr<CefRequest>)> serve;
  std::function<void(CefRefPtr<CefRequest>, CefString& new_url)> redirect;
  std::function<bool(CefRefPtr<CefRequest>, CefRefPtr<CefResponse>)> response;
  std::function<CefRefPtr<CefResponseFilter>(CefRefPtr<CefRequest>)> filter;

  /// What OnResourceLoadComplete said of a path last.
  struct Completed {
    CefRefPtr<CefRequest> request;
    CefRefPtr<CefResponse> response;
    URLRequestStatus status = UR_UNKNOWN;
    int64_t length = 0;
  };
  Completed CompletedFor(const std::string& path) const;

  CefRefPtr<CefCookieAccessFilter> GetCookieAccessFilter(CefRefPtr<CefBrowser> browser,
                                                         CefRefPtr<CefFrame> frame,
                                                         CefRefPtr<CefRequest> request) override;
  ReturnValue OnBeforeResourceLoad(CefRefPtr<CefBrowser> browser,
                                   CefRefPtr<CefFrame> frame,
                                   CefRefPtr<CefRequest> request,
                                   CefRefPtr<CefCallback> callback) override;
  CefRefPtr<CefResourceHandler> GetResourceHandler(CefRefPtr<CefBrowser> browser,
                                                   CefRefPtr<CefFrame> frame,
                                                   CefRefPtr<CefRequest> request) override;
  void OnResourceRedirect(CefRefPtr<CefBrowser> browser,
                          CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request,
                          CefRefPtr<CefResponse> response,
                          CefString& new_url) override;
  bool OnResourceResponse(CefRefPtr<CefBrowser> browser,
                          CefRefPtr<CefFrame> frame,
                          CefRefPtr<CefRequest> request,
                          CefRefPtr<CefResponse> response) override;
  CefRefPtr<CefResponseFilter> GetResourceResponseFilter(CefRefPtr<CefBrowser> browser,
                                                         CefRefPtr<CefFrame> frame,
                                                         CefRefPtr<CefRequest> request,
                                                         CefRefPtr<CefResponse> response) override;
  void OnResourceLoadComplete(CefRefPtr<CefBrowser> browser,
                              CefRefPtr<CefFrame> frame,
                              CefRefPtr<CefRequest> request,
                              CefRefPtr<CefResponse> response,
                              URLRequestStatus status,
                              int64_t received_content_length) override;

 private:
  void Add(const std::string& callback,
           CefRefPtr<CefBrowser> browser,
           CefRefPtr<CefRequest> request,
           bool read_only,
           const std::string& more = {});

  EventLog* const log_;
  mutable std::mutex lock_;
  std::map<std::string, Completed> completed_;

  IMPLEMENT_REFCOUNTING(RecordingResources);
};

}  // namespace cefedition
