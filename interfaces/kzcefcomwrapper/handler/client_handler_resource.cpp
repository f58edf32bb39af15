// Requests and their responses.
#include <optional>

#include "handler/contained_notification.h"
#include "handler/in_out_text.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/posted_json.h"
#include "handler/traced_url.h"
#include "handler/url_comparison.h"
#include "include/wrapper/cef_helpers.h"
#include "utils/hub_connector.h"

namespace kzcef {
namespace {

// RaiseContained for notifications that come with every request: without any handler in the process
// `raise` is not called, so that no text is made in vain.
template <typename Raise>
void RaiseIfHeard(const CefRefPtr<CefBrowser>& browser, Raise&& raise) noexcept {
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    if (host.IsAnyoneListening()) {
      raise(host, window);
    }
  });
}

// What the host is told of a resource type; most have no name.
const wchar_t* RequestTypeName(CefRequest::ResourceType type) {
  switch (type) {
    case RT_MAIN_FRAME:
      return L"MainFrame";
    case RT_SCRIPT:
      return L"Script";
    default:
      return L"";
  }
}

}  // namespace

CefRefPtr<CefResourceRequestHandler> kzCefClientHandler::GetResourceRequestHandler(
    CefRefPtr<CefBrowser> /*browser*/,
    CefRefPtr<CefFrame> /*frame*/,
    CefRefPtr<CefRequest> request,
    bool /*is_navigation*/,
    bool /*is_download*/,
    const CefString& /*request_initiator*/,
    bool& /*disable_default_handling*/) {
  CEF_REQUIRE_IO_THREAD();
  TraceUrl("GetResourceRequestHandler : ", request);
  return this;
}

CefRefPtr<CefCookieAccessFilter> kzCefClientHandler::GetCookieAccessFilter(
    CefRefPtr<CefBrowser> /*browser*/,
    CefRefPtr<CefFrame> /*frame*/,
    CefRefPtr<CefRequest> request) {
  CEF_REQUIRE_IO_THREAD();
  TraceUrl("GetCookieAccessFilter : ", request);
  return nullptr;
}

CefResourceRequestHandler::ReturnValue kzCefClientHandler::OnBeforeResourceLoad(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame> frame,
    CefRefPtr<CefRequest> request,
    CefRefPtr<CefCallback> callback) {
  CEF_REQUIRE_IO_THREAD();
  TraceUrl("OnBeforeResourceLoad(before) : ", request);
  Contained([&] { RewriteRequestForHub(request); });
  TraceUrl("OnBeforeResourceLoad(after) : ", request);
  RaiseIfHeard(browser, [&](HostNotifications& host, HWND window) {
    InOutText url(request->GetURL().ToWString());
    InOutText type_name(RequestTypeName(request->GetResourceType()));
    host.BeforeResourceLoadNotify(window, url.address(), type_name.address());
  });
  return resource_manager_->OnBeforeResourceLoad(browser, frame, request, callback);
}

CefRefPtr<CefResourceHandler> kzCefClientHandler::GetResourceHandler(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame> frame,
    CefRefPtr<CefRequest> request) {
  CEF_REQUIRE_IO_THREAD();
  TraceUrl("GetResourceHandler : ", request);
  return resource_manager_->GetResourceHandler(browser, frame, request);
}

void kzCefClientHandler::OnResourceRedirect(CefRefPtr<CefBrowser> browser,
                                            CefRefPtr<CefFrame> /*frame*/,
                                            CefRefPtr<CefRequest> request,
                                            CefRefPtr<CefResponse> response,
                                            CefString& new_url) {
  CEF_REQUIRE_IO_THREAD();
  RaiseIfHeard(browser, [&](HostNotifications& host, HWND window) {
    InOutText target(new_url.ToWString());
    host.ResourceRedirectNotify(window, request->GetURL().ToWString(), target.address(),
                                response->GetStatus());
    if (const std::wstring wanted = target.text(); !wanted.empty()) {
      new_url = wanted;
    }
  });
  TraceUrl("OnResourceRedirect : ", new_url);
}

bool kzCefClientHandler::OnResourceResponse(CefRefPtr<CefBrowser> browser,
                                            CefRefPtr<CefFrame> /*frame*/,
                                            CefRefPtr<CefRequest> request,
                                            CefRefPtr<CefResponse> /*response*/) {
  CEF_REQUIRE_IO_THREAD();
  VARIANT_BOOL modify_request = VARIANT_FALSE;
  // What the host left of the request's URL; nothing when it was not asked.
  std::optional<CefString> answer;
  RaiseIfHeard(browser, [&](HostNotifications& host, HWND window) {
    InOutText url(request->GetURL().ToWString());
    host.ResourceResponseNotify(window, url.address(), &modify_request, request->GetResourceType());
    answer = url.text();
  });
  if (answer && answer->empty()) {
    TraceUrl("OnResourceResponse(0) : ", request);
    return false;
  }
  const bool restarts = answer && modify_request != VARIANT_FALSE &&
                        Contained(
                            [&] {
                              if (IsSameUrl(request->GetURL().ToString(), answer->ToString())) {
                                return false;
                              }
                              request->SetURL(*answer);
                              return true;
                            },
                            /*otherwise=*/false);
  if (restarts) {
    TraceUrl("OnResourceResponse(1) : ", *answer);
  } else {
    TraceUrl("OnResourceResponse(2) : ", request);
  }
  return restarts;
}

CefRefPtr<CefResponseFilter> kzCefClientHandler::GetResourceResponseFilter(
    CefRefPtr<CefBrowser> /*browser*/,
    CefRefPtr<CefFrame> /*frame*/,
    CefRefPtr<CefRequest> request,
    CefRefPtr<CefResponse> /*response*/) {
  CEF_REQUIRE_IO_THREAD();
  TraceUrl("GetResourceResponseFilter : ", request);
  return nullptr;
}

void kzCefClientHandler::OnResourceLoadComplete(CefRefPtr<CefBrowser> browser,
                                                CefRefPtr<CefFrame> /*frame*/,
                                                CefRefPtr<CefRequest> request,
                                                CefRefPtr<CefResponse> /*response*/,
                                                URLRequestStatus /*status*/,
                                                int64_t /*received_content_length*/) {
  CEF_REQUIRE_IO_THREAD();
  TraceUrl("OnResourceLoadComplete : ", request);
  Contained([&] {
    const std::wstring json = PostedJson(request);
    if (!json.empty()) {
      RaiseNotification(browser, [&](HostNotifications& host, HWND window) {
        host.ResourceLoadCompleteNotify(window, request->GetURL().ToWString(), json);
      });
    }
  });
}

void kzCefClientHandler::OnProtocolExecution(CefRefPtr<CefBrowser> /*browser*/,
                                             CefRefPtr<CefFrame> /*frame*/,
                                             CefRefPtr<CefRequest> request,
                                             bool& allow_os_execution) {
  allow_os_execution = Contained(
      [&] { return request->GetURL().ToString().starts_with("spotify:"); }, /*otherwise=*/false);
}

}  // namespace kzcef
