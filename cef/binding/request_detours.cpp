// The way of requests whose address the client has changed after they were sent.

#include "request_detours.h"

#include <map>
#include <string>
#include <utility>

#include "binding.h"
#include "include/cef_parser.h"

namespace cefbinding {
namespace {

struct Detour {
  // Where the engine would go, without a fragment, and where it is to go.
  std::string from;
  CefString to;
  // Whether the engine has been sent there, of which it tells as of any redirect.
  bool taken = false;
};

// Renderers number their requests each for itself; `from` tells apart what two of one browser send.
using RequestKey = std::pair<int, uint64_t>;

RequestKey KeyOf(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefRequest>& request) {
  return {browser ? browser->GetIdentifier() : 0, request->GetIdentifier()};
}

// Those of requests that are under way; nearly always none. IO thread only.
std::map<RequestKey, Detour>& Detours() {
  static std::map<RequestKey, Detour> detours;
  return detours;
}

std::string WithoutFragment(const CefString& url) {
  const std::string text = url.ToString();
  return text.substr(0, text.find('#'));
}

// The detour of `request` from the address that it has now; null without one.
Detour* FindDetour(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefRequest>& request) {
  if (Detours().empty()) {
    return nullptr;
  }
  const auto found = Detours().find(KeyOf(browser, request));
  const bool is_its_own =
      found != Detours().end() && found->second.from == WithoutFragment(request->GetURL());
  return is_its_own ? &found->second : nullptr;
}

void Forget(const CefRefPtr<CefBrowser>& browser, const CefRefPtr<CefRequest>& request) {
  if (!Detours().empty()) {
    Detours().erase(KeyOf(browser, request));
  }
}

// `url` as the engine writes it, relative to `base`; empty if it is no URL.
CefString Resolve(const CefString& base, const CefString& url) {
  CefString resolved;
  return CallEngine(&capi::Functions::cef_resolve_url, Needed(base), Needed(url), &resolved)
             ? resolved
             : CefString();
}

}  // namespace

cef_return_value_t OnBeforeResourceLoad(CefResourceRequestHandler& client,
                                        CefRefPtr<CefBrowser> browser,
                                        CefRefPtr<CefFrame> frame,
                                        CefRefPtr<CefRequest> request,
                                        CefRefPtr<CefCallback> callback) {
  Detour* const detour = FindDetour(browser, request);
  if (!detour || detour->taken) {
    return client.OnBeforeResourceLoad(browser, frame, request, callback);
  }
  detour->taken = true;
  request->SetURL(detour->to);
  return RV_CONTINUE;
}

void OnResourceRedirect(CefResourceRequestHandler& client,
                        CefRefPtr<CefBrowser> browser,
                        CefRefPtr<CefFrame> frame,
                        CefRefPtr<CefRequest> request,
                        CefRefPtr<CefResponse> response,
                        CefString& new_url) {
  const Detour* const detour = FindDetour(browser, request);
  const bool is_detour = detour && detour->taken;
  Forget(browser, request);
  if (is_detour) {
    return;
  }
  const CefString target = new_url;
  client.OnResourceRedirect(browser, frame, request, response, new_url);
  if (new_url == target) {
    return;
  }
  const CefString wanted = Resolve(target, new_url);
  if (!wanted.empty() && wanted != target) {
    Detours()[KeyOf(browser, request)] = {WithoutFragment(target), wanted};
  }
}

bool OnResourceResponse(CefResourceRequestHandler& client,
                        CefRefPtr<CefBrowser> browser,
                        CefRefPtr<CefFrame> frame,
                        CefRefPtr<CefRequest> request,
                        CefRefPtr<CefResponse> response) {
  const CefString url = request->GetURL();
  const CefRefPtr<CefRequest> shown = WithOwnUrl(request);
  if (!client.OnResourceResponse(browser, frame, shown, response)) {
    return false;
  }
  const CefString shown_url = shown->GetURL();
  if (shown_url == url) {
    return true;
  }
  const CefString wanted = Resolve(url, shown_url);
  if (wanted.empty() || wanted == url) {
    return false;
  }
  Detours()[KeyOf(browser, request)] = {WithoutFragment(url), wanted};
  // The engine makes a request again when anything but its URL was set.
  CefRequest::HeaderMap headers;
  request->GetHeaderMap(headers);
  request->SetHeaderMap(headers);
  return true;
}

void OnResourceLoadComplete(CefResourceRequestHandler& client,
                            CefRefPtr<CefBrowser> browser,
                            CefRefPtr<CefFrame> frame,
                            CefRefPtr<CefRequest> request,
                            CefRefPtr<CefResponse> response,
                            cef_urlrequest_status_t status,
                            int64_t received_content_length) {
  Forget(browser, request);
  client.OnResourceLoadComplete(browser, frame, request, response, status, received_content_length);
}

}  // namespace cefbinding
