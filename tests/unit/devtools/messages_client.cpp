#include "messages_client.h"

#include <algorithm>
#include <vector>

#include "include/base/cef_bind.h"
#include "include/wrapper/cef_closure_task.h"

namespace cefedition {

MessagesClient::MessagesClient(EventLog* log) : RecordingClient(log), log_(log) {
  on_created = [this](CefRefPtr<CefBrowser>) {
    if (!router_) {
      router_ = CefMessageRouterBrowserSide::Create(CefMessageRouterConfig());
      router_->AddHandler(this, true);
    }
  };
}

void MessagesClient::Answer(const std::string& request, bool success, const std::string& text) {
  CefPostTask(TID_UI, CefCreateClosureTask(base::BindOnce(&MessagesClient::AnswerNow, this, request,
                                                          success, text)));
}

void MessagesClient::AnswerNow(const std::string& request, bool success, const std::string& text) {
  const CefRefPtr<Callback> callback = kept_[request];
  if (!callback) {
    log_->Add("nothing kept");
  } else if (success) {
    callback->Success(text);
  } else {
    callback->Failure(5, text);
  }
}

bool MessagesClient::OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                              CefRefPtr<CefFrame> frame,
                                              CefProcessId source_process,
                                              CefRefPtr<CefProcessMessage> message) {
  const bool on_ui = CefCurrentlyOn(TID_UI);
  if (router_->OnProcessMessageReceived(browser, frame, source_process, message)) {
    return true;
  }
  log_->Add("message " + message->GetName().ToString() + " " +
            (message->GetArgumentList()->GetBool(0) ? "true" : "false") +
            (frame->IsMain() ? " main" : " sub") + (on_ui ? "" : " on a wrong thread"));
  return false;
}

bool MessagesClient::OnBeforeBrowse(CefRefPtr<CefBrowser> browser,
                                    CefRefPtr<CefFrame> frame,
                                    CefRefPtr<CefRequest> request,
                                    bool user_gesture,
                                    bool is_redirect) {
  router_->OnBeforeBrowse(browser, frame);
  return RecordingClient::OnBeforeBrowse(browser, frame, request, user_gesture, is_redirect);
}

void MessagesClient::OnBeforeClose(CefRefPtr<CefBrowser> browser) {
  router_->OnBeforeClose(browser);
  RecordingClient::OnBeforeClose(browser);
}

bool MessagesClient::OnQuery(CefRefPtr<CefBrowser>,
                             CefRefPtr<CefFrame> frame,
                             int64_t query_id,
                             const CefString& request,
                             bool persistent,
                             CefRefPtr<Callback> callback) {
  const std::string text = request;
  log_->Add(std::string("query ") + (frame->IsMain() ? "main " : "sub ") + text +
            (persistent ? " persistent" : ""));
  names_[query_id] = text;
  if (text.starts_with("echo ")) {
    callback->Success(text.substr(5));
  } else if (text.starts_with("fail ")) {
    callback->Failure(42, text.substr(5));
  } else if (text.starts_with("keep")) {
    kept_[text] = callback;
  } else {
    return false;
  }
  return true;
}

bool MessagesClient::OnQuery(CefRefPtr<CefBrowser>,
                             CefRefPtr<CefFrame>,
                             int64_t,
                             CefRefPtr<const CefBinaryBuffer> request,
                             bool,
                             CefRefPtr<Callback> callback) {
  const auto* const data = static_cast<const char*>(request->GetData());
  std::vector<char> bytes(data, data + request->GetSize());
  log_->Add("bytes " + std::to_string(bytes.size()));
  std::reverse(bytes.begin(), bytes.end());
  callback->Success(bytes.data(), bytes.size());
  return true;
}

void MessagesClient::OnQueryCanceled(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame>, int64_t query_id) {
  log_->Add("canceled " + names_[query_id]);
}

}  // namespace cefedition
