// include/wrapper/cef_stream_resource_handler.h of CEF 123, as far as it is
// used here: serving a request from a stream.
#pragma once

#include "include/cef_resource_handler.h"
#include "include/cef_response.h"
#include "include/cef_stream.h"

// Serves a request from a stream.
class CefStreamResourceHandler : public CefResourceHandler {
 public:
  // Status 200 "OK" and no headers.
  CefStreamResourceHandler(const CefString& mime_type, CefRefPtr<CefStreamReader> stream);
  // The stream may be null, for a response without a body.
  CefStreamResourceHandler(int status_code,
                           const CefString& status_text,
                           const CefString& mime_type,
                           CefResponse::HeaderMap header_map,
                           CefRefPtr<CefStreamReader> stream);
  CefStreamResourceHandler(const CefStreamResourceHandler&) = delete;
  CefStreamResourceHandler& operator=(const CefStreamResourceHandler&) = delete;

  bool Open(CefRefPtr<CefRequest> request,
            bool& handle_request,
            CefRefPtr<CefCallback> callback) override;
  void GetResponseHeaders(CefRefPtr<CefResponse> response,
                          int64_t& response_length,
                          CefString& redirectUrl) override;
  bool Read(void* data_out,
            int bytes_to_read,
            int& bytes_read,
            CefRefPtr<CefResourceReadCallback> callback) override;
  void Cancel() override;

 private:
  const int status_code_;
  const CefString status_text_;
  const CefString mime_type_;
  const CefResponse::HeaderMap header_map_;
  const CefRefPtr<CefStreamReader> stream_;

  IMPLEMENT_REFCOUNTING(CefStreamResourceHandler);
};
