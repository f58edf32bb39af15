#include "recording_resources.h"

#include <gtest/gtest.h>

#include "include/wrapper/cef_helpers.h"

namespace cefedition {
namespace {

std::string StatusName(cef_urlrequest_status_t status) {
  switch (status) {
    case UR_SUCCESS:
      return "success";
    case UR_CANCELED:
      return "canceled";
    case UR_FAILED:
      return "failed";
    default:
      return "status " + std::to_string(status);
  }
}

}  // namespace

std::string PathOf(const CefString& url) {
  const std::string text = url.ToString();
  const size_t host = text.find("://");
  const size_t path = host == std::string::npos ? host : text.find('/', host + 3);
  return path == std::string::npos ? text : text.substr(path);
}

std::string BodyOf(CefRefPtr<CefRequest> request) {
  const CefRefPtr<CefPostData> data = request->GetPostData();
  if (!data) {
    return "none";
  }
  CefPostData::ElementVector elements;
  data->GetElements(elements);
  std::string text;
  for (const auto& element : elements) {
    std::string bytes(element->GetBytesCount(), '\0');
    element->GetBytes(bytes.size(), bytes.data());
    text += (text.empty() ? "" : "|") + bytes;
  }
  return text;
}

void RecordingResources::Add(const std::string& callback,
                             CefRefPtr<CefBrowser> browser,
                             CefRefPtr<CefRequest> request,
                             bool read_only,
                             const std::string& more) {
  const std::string path = PathOf(request->GetURL());
  EXPECT_TRUE(CefCurrentlyOn(TID_IO)) << callback << " " << path;
  EXPECT_TRUE(browser) << callback << " " << path;
  EXPECT_NE(request->GetIdentifier(), 0u) << callback << " " << path;
  EXPECT_EQ(request->IsReadOnly(), read_only) << callback << " " << path;
  log_->Add(callback + " " + path + more);
}

RecordingResources::Completed RecordingResources::CompletedFor(const std::string& path) const {
  std::lock_guard hold(lock_);
  const auto found = completed_.find(path);
  return found != completed_.end() ? found->second : Completed();
}

CefRefPtr<CefCookieAccessFilter> RecordingResources::GetCookieAccessFilter(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame>,
    CefRefPtr<CefRequest> request) {
  Add("cookies", browser, request, true);
  return nullptr;
}

CefResourceRequestHandler::ReturnValue RecordingResources::OnBeforeResourceLoad(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame>,
    CefRefPtr<CefRequest> request,
    CefRefPtr<CefCallback> callback) {
  Add("before-load", browser, request, false);
  return before_load ? before_load(request, callback) : RV_CONTINUE;
}

CefRefPtr<CefResourceHandler> RecordingResources::GetResourceHandler(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame>,
    CefRefPtr<CefRequest> request) {
  Add("handler", browser, request, true);
  return serve ? serve(request) : nullptr;
}

void RecordingResources::OnResourceRedirect(CefRefPtr<CefBrowser> browser,
                                            CefRefPtr<CefFrame>,
                                            CefRefPtr<CefRequest> request,
                                            CefRefPtr<CefResponse> answer,
                                            CefString& new_url) {
  EXPECT_TRUE(answer->IsReadOnly());
  Add("redirect", browser, request, true,
      " " + std::to_string(answer->GetStatus()) + " " + PathOf(new_url));
  if (redirect) {
    redirect(request, new_url);
  }
}

bool RecordingResources::OnResourceResponse(CefRefPtr<CefBrowser> browser,
                                            CefRefPtr<CefFrame>,
                                            CefRefPtr<CefRequest> request,
                                            CefRefPtr<CefResponse> answer) {
  EXPECT_TRUE(answer->IsReadOnly());
  Add("response", browser, request, false, " " + std::to_string(answer->GetStatus()));
  return response && response(request, answer);
}

CefRefPtr<CefResponseFilter> RecordingResources::GetResourceResponseFilter(
    CefRefPtr<CefBrowser> browser,
    CefRefPtr<CefFrame>,
    CefRefPtr<CefRequest> request,
    CefRefPtr<CefResponse>) {
  Add("filter", browser, request, true);
  return filter ? filter(request) : nullptr;
}

void RecordingResources::OnResourceLoadComplete(CefRefPtr<CefBrowser> browser,
                                                CefRefPtr<CefFrame>,
                                                CefRefPtr<CefRequest> request,
                                                CefRefPtr<CefResponse> answer,
                                                URLRequestStatus status,
                                                int64_t received_content_length) {
  {
    std::lock_guard hold(lock_);
    completed_[PathOf(request->GetURL())] = {request, answer, status, received_content_length};
  }
  Add("complete", browser, request, true,
      " " + StatusName(status) + " " + std::to_string(received_content_length));
}

}  // namespace cefedition
