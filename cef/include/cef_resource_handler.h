// include/cef_resource_handler.h of CEF 123, as far as it is used here:
// serving a request in place of the network.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_callback.h"
#include "include/cef_cookie.h"
#include "include/cef_request.h"
#include "include/cef_response.h"

// Continues an asynchronous Skip.
class CefResourceSkipCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(int64_t bytes_skipped) = 0;
};

// Continues an asynchronous Read.
class CefResourceReadCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(int bytes_read) = 0;
};

// Serves one request in place of the network.
class CefResourceHandler : public virtual CefBaseRefCounted {
 public:
  virtual bool Open(CefRefPtr<CefRequest> /*request*/,
                    bool& handle_request,
                    CefRefPtr<CefCallback> /*callback*/) {
    handle_request = false;
    return false;
  }
  virtual bool ProcessRequest(CefRefPtr<CefRequest> /*request*/,
                              CefRefPtr<CefCallback> /*callback*/) {
    return false;
  }
  virtual void GetResponseHeaders(CefRefPtr<CefResponse> response,
                                  int64_t& response_length,
                                  CefString& redirectUrl) = 0;
  virtual bool Skip(int64_t /*bytes_to_skip*/,
                    int64_t& bytes_skipped,
                    CefRefPtr<CefResourceSkipCallback> /*callback*/) {
    bytes_skipped = -2;
    return false;
  }
  virtual bool Read(void* /*data_out*/,
                    int /*bytes_to_read*/,
                    int& bytes_read,
                    CefRefPtr<CefResourceReadCallback> /*callback*/) {
    bytes_read = -1;
    return false;
  }
  virtual bool ReadResponse(void* /*data_out*/,
                            int /*bytes_to_read*/,
                            int& bytes_read,
                            CefRefPtr<CefCallback> /*callback*/) {
    bytes_read = -2;
    return false;
  }
  virtual void Cancel() = 0;
};
