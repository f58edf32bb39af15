#pragma once

#include <optional>
#include <string>

#include "base/request.h"
#include "base/response.h"
#include "devtools/protocol_connection.h"

namespace cefedition {

// Requests and responses between the protocol's messages and CEF's objects.

/// The URL of a protocol request with its fragment.
std::string RequestUrl(const Json& request);

/// CEF's request with what a protocol request says: URL, method, headers, referrer and body.
CefRefPtr<Request> RequestFromProtocol(const Json& request);

/// Appends an element to the body of `request`, which gets one if it has none.
void AddBodyBytes(Request& request, const void* bytes, size_t size);

/// The read-only response that `Fetch.requestPaused` tells of, for a request to `url`.
CefRefPtr<Response> ResponseFromProtocol(const Json& paused, const std::string& url);

/// A response that was made up, with the MIME type and charset that its headers say.
CefRefPtr<Response> MakeResponse(int status,
                                 const std::string& status_text,
                                 const CefResponse::HeaderMap& headers,
                                 const std::string& url);

/// CEF's type for the protocol's word. A document is `RT_MAIN_FRAME` or `RT_SUB_FRAME`.
cef_resource_type_t ResourceTypeOf(const std::string& protocol_type, bool is_main_frame);

/// Where a redirect leads, empty when the response is none.
std::string RedirectTarget(Response& response);

/// `text` as a URL that may be relative to `base`; empty when it is none.
std::string ResolveAgainst(const std::string& base, const std::string& text);

/// The origin of a URL without the slash at its end; empty for one that has none.
std::string OriginText(const std::string& url);

/// All elements of a body one after the other; files are read.
std::string BodyText(CefPostData& body);

/// What of a request can be changed on its way to the server.
struct RequestContent {
  explicit RequestContent(Request& request);

  std::string url;
  std::string method;
  std::string referrer;
  CefRequest::HeaderMap headers;
  std::optional<std::string> body;
};

/// What somebody has changed, apart from the URL.
struct RequestChanges {
  RequestChanges() = default;
  RequestChanges(const RequestContent& before, Request& now);

  /// Makes the same changes to another request.
  void ApplyTo(Request& request) const;
  /// Adds the members of `Fetch.continueRequest` that make them.
  void AddTo(Json& params) const;

  std::optional<std::string> method;
  /// Both, if one of them was changed: the protocol has the referrer among the headers.
  std::optional<CefRequest::HeaderMap> headers;
  std::string referrer;
  CefRefPtr<CefPostData> body;
};

/// What the browser sends as "Accept-Language" for languages that are separated by commas.
std::string AcceptLanguageHeader(const std::string& languages);

/// Headers as the protocol writes them. Of several with the same name a request keeps the last.
Json HeadersToProtocol(const CefRequest::HeaderMap& headers, bool unique_names);

}  // namespace cefedition
