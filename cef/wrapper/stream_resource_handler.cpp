// A resource handler whose body is what a stream yields.

#include "include/wrapper/cef_stream_resource_handler.h"

CefStreamResourceHandler::CefStreamResourceHandler(const CefString& mime_type,
                                                   CefRefPtr<CefStreamReader> stream)
    : CefStreamResourceHandler(200, "OK", mime_type, CefResponse::HeaderMap(), stream) {}

CefStreamResourceHandler::CefStreamResourceHandler(int status_code,
                                                   const CefString& status_text,
                                                   const CefString& mime_type,
                                                   CefResponse::HeaderMap header_map,
                                                   CefRefPtr<CefStreamReader> stream)
    : status_code_(status_code),
      status_text_(status_text),
      mime_type_(mime_type),
      header_map_(std::move(header_map)),
      stream_(std::move(stream)) {}

bool CefStreamResourceHandler::Open(CefRefPtr<CefRequest>,
                                    bool& handle_request,
                                    CefRefPtr<CefCallback>) {
  handle_request = true;
  return true;
}

// Without a body the length is 0, otherwise unknown: a stream only ends.
void CefStreamResourceHandler::GetResponseHeaders(CefRefPtr<CefResponse> response,
                                                  int64_t& response_length,
                                                  CefString&) {
  response->SetStatus(status_code_);
  response->SetStatusText(status_text_);
  response->SetMimeType(mime_type_);
  if (!header_map_.empty()) {
    response->SetHeaderMap(header_map_);
  }
  response_length = stream_ ? -1 : 0;
}

bool CefStreamResourceHandler::Read(void* data_out,
                                    int bytes_to_read,
                                    int& bytes_read,
                                    CefRefPtr<CefResourceReadCallback>) {
  bytes_read = 0;
  if (stream_ && bytes_to_read > 0) {
    auto* const bytes = static_cast<char*>(data_out);
    int read = 0;
    do {
      read = static_cast<int>(
          stream_->Read(bytes + bytes_read, 1, static_cast<size_t>(bytes_to_read - bytes_read)));
      bytes_read += read;
    } while (read > 0 && bytes_read < bytes_to_read);
  }
  return bytes_read > 0;
}

void CefStreamResourceHandler::Cancel() {}
