// The browser process's side of the message router: hands the queries of pages to the handlers and
// sends their answers back to the pages.

#include "include/wrapper/cef_message_router.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <vector>

#include "include/wrapper/cef_closure_task.h"
#include "include/wrapper/cef_helpers.h"

// The messages between the two sides carry lists, in which a context is one page script context of
// a renderer and a request one call of the query function in it:
//   <query function>Msg, to the browser     context, request, text or bytes, persistent
//   <cancel function>Msg, to the browser    context, request (0: all of the context)
//   <query function>Msg, to the renderer    context, request, true, text or bytes
//                                           context, request, false, error code, error text

namespace {

constexpr int kAllRequests = 0;
constexpr int kCanceledErrorCode = -1;
constexpr char kCanceledErrorMessage[] = "The query has been canceled";
constexpr size_t kDefaultThreshold = size_t{16} * 1024;

class BinaryBuffer final : public CefBinaryBuffer {
 public:
  explicit BinaryBuffer(const CefRefPtr<CefBinaryValue>& value) : bytes_(value->GetSize()) {
    value->GetData(bytes_.data(), bytes_.size(), 0);
  }

  const void* GetData() const override { return bytes_.data(); }
  void* GetData() override { return bytes_.data(); }
  size_t GetSize() const override { return bytes_.size(); }

 private:
  std::vector<uint8_t> bytes_;

  IMPLEMENT_REFCOUNTING(BinaryBuffer);
};

// What the page is told about its query.
struct Answer {
  bool success = false;
  CefRefPtr<CefValue> response;
  int error_code = 0;
  CefString error_message;
};

class Router final : public CefMessageRouterBrowserSide {
 public:
  explicit Router(const CefMessageRouterConfig& config)
      : query_message_(config.js_query_function.ToString() + "Msg"),
        cancel_message_(config.js_cancel_function.ToString() + "Msg") {}

  bool AddHandler(Handler* handler, bool first) override {
    CEF_REQUIRE_UI_THREAD();
    if (!handler || std::find(handlers_.begin(), handlers_.end(), handler) != handlers_.end()) {
      return false;
    }
    handlers_.insert(first ? handlers_.begin() : handlers_.end(), handler);
    return true;
  }

  bool RemoveHandler(Handler* handler) override {
    CEF_REQUIRE_UI_THREAD();
    if (std::erase(handlers_, handler) == 0) {
      return false;
    }
    CancelPending(nullptr, handler);
    return true;
  }

  void CancelPending(CefRefPtr<CefBrowser> browser, Handler* handler) override {
    Cancel(Matching(browser, handler), true);
  }

  int GetPendingCount(CefRefPtr<CefBrowser> browser, Handler* handler) override {
    return static_cast<int>(Matching(browser, handler).size());
  }

  // The page is gone or about to go: only the handlers are told.
  void OnBeforeClose(CefRefPtr<CefBrowser> browser) override {
    Cancel(Matching(browser, nullptr), false);
  }
  void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser) override {
    Cancel(Matching(browser, nullptr), false);
  }
  void OnBeforeBrowse(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame) override {
    if (frame && frame->IsMain()) {
      Cancel(Matching(browser, nullptr), false);
    }
  }

  bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                CefRefPtr<CefFrame> frame,
                                CefProcessId source_process,
                                CefRefPtr<CefProcessMessage> message) override {
    CEF_REQUIRE_UI_THREAD();
    if (source_process != PID_RENDERER || !message || !message->IsValid() ||
        !message->GetArgumentList()) {
      return false;
    }
    const std::string name = message->GetName();
    if (name == query_message_) {
      OnQueryMessage(browser, frame, message->GetArgumentList());
      return true;
    }
    if (name == cancel_message_) {
      OnCancelMessage(browser, message->GetArgumentList());
      return true;
    }
    return false;
  }

  // Sends a handler's answer to the page. UI thread.
  void Deliver(int64_t query_id, const Answer& answer) {
    const auto found = pending_.find(query_id);
    if (found == pending_.end()) {
      return;
    }
    const Pending query = found->second;
    if (!query.persistent || !answer.success) {
      Forget(found);
    }
    Send(query, answer);
  }

 private:
  class QueryCallback;

  struct Pending {
    CefRefPtr<CefBrowser> browser;
    CefRefPtr<CefFrame> frame;
    int context_id = 0;
    int request_id = 0;
    bool persistent = false;
    Handler* handler = nullptr;
    CefRefPtr<QueryCallback> callback;
  };
  using PendingQueries = std::map<int64_t, Pending>;

  // Lets go of the router once its query is over, so that neither keeps the other.
  class QueryCallback final : public Callback {
   public:
    QueryCallback(scoped_refptr<Router> router, int64_t query_id)
        : router_(std::move(router)), query_id_(query_id) {}

    void Success(const CefString& response) override {
      CefRefPtr<CefValue> value = CefValue::Create();
      value->SetString(response);
      Post({.success = true, .response = value, .error_message = CefString()});
    }
    void Success(const void* data, size_t size) override {
      CefRefPtr<CefValue> value = CefValue::Create();
      // No bytes travel as an empty text.
      value->SetString(CefString());
      value->SetBinary(CefBinaryValue::Create(data, size));
      Post({.success = true, .response = value, .error_message = CefString()});
    }
    void Failure(int error_code, const CefString& error_message) override {
      Post({.success = false,
            .response = nullptr,
            .error_code = error_code,
            .error_message = error_message});
    }

    void Deliver(const Answer& answer) {
      if (const scoped_refptr<Router> router = router_) {
        router->Deliver(query_id_, answer);
      }
    }
    void Detach() { router_ = nullptr; }

   private:
    void Post(Answer answer) {
      if (CefCurrentlyOn(TID_UI)) {
        Deliver(answer);
      } else {
        CefPostTask(TID_UI, base::BindOnce(&QueryCallback::Deliver, this, std::move(answer)));
      }
    }

    // Used on the UI thread only.
    scoped_refptr<Router> router_;
    const int64_t query_id_;

    IMPLEMENT_REFCOUNTING(QueryCallback);
  };

  ~Router() override = default;

  std::vector<int64_t> Matching(const CefRefPtr<CefBrowser>& browser,
                                const Handler* handler) const {
    std::vector<int64_t> ids;
    for (const auto& [id, query] : pending_) {
      if ((!browser || query.browser->IsSame(browser)) && (!handler || query.handler == handler)) {
        ids.push_back(id);
      }
    }
    return ids;
  }

  void Forget(PendingQueries::iterator query) {
    query->second.callback->Detach();
    pending_.erase(query);
  }

  // Handlers may add, answer and cancel queries while they are told of one.
  void Cancel(const std::vector<int64_t>& ids, bool tell_page) {
    CEF_REQUIRE_UI_THREAD();
    for (const int64_t id : ids) {
      const auto found = pending_.find(id);
      if (found == pending_.end()) {
        continue;
      }
      const Pending query = found->second;
      Forget(found);
      if (tell_page) {
        Send(query, Canceled());
      }
      query.handler->OnQueryCanceled(query.browser, query.frame, id);
    }
  }

  void OnQueryMessage(const CefRefPtr<CefBrowser>& browser,
                      const CefRefPtr<CefFrame>& frame,
                      const CefRefPtr<CefListValue>& arguments) {
    const CefValueType type = arguments->GetType(2);
    if (arguments->GetSize() != 4 || (type != VTYPE_STRING && type != VTYPE_BINARY)) {
      return;
    }
    Pending query;
    query.browser = browser;
    query.frame = frame;
    query.context_id = arguments->GetInt(0);
    query.request_id = arguments->GetInt(1);
    query.persistent = arguments->GetBool(3);
    const int64_t id = next_query_id_++;
    query.callback = new QueryCallback(this, id);

    // Pending while the handlers are asked: one of them may answer at once.
    const auto ask = [&](Handler* handler) {
      query.handler = handler;
      pending_[id] = query;
      const bool taken =
          type == VTYPE_STRING
              ? handler->OnQuery(browser, frame, id, arguments->GetString(2), query.persistent,
                                 query.callback)
              : handler->OnQuery(
                    browser, frame, id,
                    CefRefPtr<const CefBinaryBuffer>(new BinaryBuffer(arguments->GetBinary(2))),
                    query.persistent, query.callback);
      if (!taken) {
        pending_.erase(id);
      }
      return taken;
    };
    const std::vector<Handler*> handlers = handlers_;
    if (std::none_of(handlers.begin(), handlers.end(), ask)) {
      query.callback->Detach();
      Send(query, Canceled());
    }
  }

  void OnCancelMessage(const CefRefPtr<CefBrowser>& browser,
                       const CefRefPtr<CefListValue>& arguments) {
    const int context_id = arguments->GetInt(0);
    const int request_id = arguments->GetInt(1);
    std::vector<int64_t> ids = Matching(browser, nullptr);
    std::erase_if(ids, [&](int64_t id) {
      const Pending& query = pending_.at(id);
      return query.context_id != context_id ||
             (request_id != kAllRequests && query.request_id != request_id);
    });
    Cancel(ids, false);
  }

  static Answer Canceled() {
    return {.success = false,
            .response = nullptr,
            .error_code = kCanceledErrorCode,
            .error_message = kCanceledErrorMessage};
  }

  void Send(const Pending& query, const Answer& answer) const {
    if (!query.frame || !query.frame->IsValid()) {
      return;
    }
    CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(query_message_);
    const CefRefPtr<CefListValue> arguments = message->GetArgumentList();
    arguments->SetInt(0, query.context_id);
    arguments->SetInt(1, query.request_id);
    arguments->SetBool(2, answer.success);
    if (answer.success) {
      arguments->SetValue(3, answer.response);
    } else {
      arguments->SetInt(3, answer.error_code);
      arguments->SetString(4, answer.error_message);
    }
    query.frame->SendProcessMessage(PID_RENDERER, message);
  }

  const std::string query_message_;
  const std::string cancel_message_;
  std::vector<Handler*> handlers_;
  PendingQueries pending_;
  int64_t next_query_id_ = 1;
};

}  // namespace

CefMessageRouterConfig::CefMessageRouterConfig()
    : js_query_function("cefQuery"),
      js_cancel_function("cefQueryCancel"),
      message_size_threshold(kDefaultThreshold) {}

// A router without names for its functions could not tell its messages from others.
CefRefPtr<CefMessageRouterBrowserSide> CefMessageRouterBrowserSide::Create(
    const CefMessageRouterConfig& config) {
  if (config.js_query_function.empty() || config.js_cancel_function.empty()) {
    return nullptr;
  }
  return new Router(config);
}
