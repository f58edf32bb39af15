// include/wrapper/cef_message_router.h of CEF 123, as far as it is used here: the
// browser process's side of queries that pages make.
#pragma once

#include "include/base/cef_ref_counted.h"
#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_process_message.h"

// Asynchronous queries from page script to the browser process: window.cefQuery({request,
// persistent, onSuccess, onFailure}) and window.cefQueryCancel(id). The renderer's side gives pages
// these functions; it is not declared here.

// The same values must be used on both sides. No two routers of a process may share a function.
struct CefMessageRouterConfig {
  CefMessageRouterConfig();

  // Names of the script functions; "cefQuery" and "cefQueryCancel" unless changed.
  CefString js_query_function;
  CefString js_cancel_function;

  // The size in bytes from which on a message would travel in shared memory.
  size_t message_size_threshold;
};

// The bytes of a query made with an ArrayBuffer.
class CefBinaryBuffer : public CefBaseRefCounted {
 public:
  virtual const void* GetData() const = 0;
  virtual void* GetData() = 0;
  virtual size_t GetSize() const = 0;
};

// The browser process's side. Called on the UI thread, Create excepted.
class CefMessageRouterBrowserSide : public base::RefCountedThreadSafe<CefMessageRouterBrowserSide> {
 public:
  // Answers one query. A callback of a query that is not persistent is used once. Any thread.
  class Callback : public CefBaseRefCounted {
   public:
    virtual void Success(const CefString& response) = 0;
    virtual void Success(const void* data, size_t size) = 0;
    virtual void Failure(int error_code, const CefString& error_message) = 0;
  };

  // Handles queries. Called on the UI thread.
  class Handler {
   public:
    using Callback = CefMessageRouterBrowserSide::Callback;

    // Returns true to take the query; the handler then owes an answer through |callback|.
    virtual bool OnQuery(CefRefPtr<CefBrowser> /*browser*/,
                         CefRefPtr<CefFrame> /*frame*/,
                         int64_t /*query_id*/,
                         const CefString& /*request*/,
                         bool /*persistent*/,
                         CefRefPtr<Callback> /*callback*/) {
      return false;
    }
    virtual bool OnQuery(CefRefPtr<CefBrowser> /*browser*/,
                         CefRefPtr<CefFrame> /*frame*/,
                         int64_t /*query_id*/,
                         CefRefPtr<const CefBinaryBuffer> /*request*/,
                         bool /*persistent*/,
                         CefRefPtr<Callback> /*callback*/) {
      return false;
    }

    // The query is over: its callback no longer reaches the page.
    virtual void OnQueryCanceled(CefRefPtr<CefBrowser> /*browser*/,
                                 CefRefPtr<CefFrame> /*frame*/,
                                 int64_t /*query_id*/) {}

    virtual ~Handler() = default;
  };

  static CefRefPtr<CefMessageRouterBrowserSide> Create(const CefMessageRouterConfig& config);

  // Handlers are asked in order, the first added first unless |first|. The router does not own
  // them. Returns false when the handler is there already (or, for RemoveHandler, is not).
  virtual bool AddHandler(Handler* handler, bool first) = 0;
  // Cancels the handler's pending queries.
  virtual bool RemoveHandler(Handler* handler) = 0;

  // Cancel and count pending queries; null stands for every browser or handler.
  virtual void CancelPending(CefRefPtr<CefBrowser> browser, Handler* handler) = 0;
  virtual int GetPendingCount(CefRefPtr<CefBrowser> browser, Handler* handler) = 0;

  // To be called from the client's callbacks of the same names.
  virtual void OnBeforeClose(CefRefPtr<CefBrowser> browser) = 0;
  virtual void OnRenderProcessTerminated(CefRefPtr<CefBrowser> browser) = 0;
  virtual void OnBeforeBrowse(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame) = 0;
  // Returns true when the message was the router's.
  virtual bool OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                        CefRefPtr<CefFrame> frame,
                                        CefProcessId source_process,
                                        CefRefPtr<CefProcessMessage> message) = 0;

 protected:
  friend class base::RefCountedThreadSafe<CefMessageRouterBrowserSide>;
  friend struct base::DefaultRefCountedThreadSafeTraits<CefMessageRouterBrowserSide>;
  virtual ~CefMessageRouterBrowserSide() = default;
};
