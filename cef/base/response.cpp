#include "response.h"

namespace cefedition {

void Response::SetReadOnly(bool read_only) {
  const std::lock_guard lock(lock_);
  read_only_ = read_only;
}

bool Response::IsReadOnly() {
  return Get(read_only_);
}

cef_errorcode_t Response::GetError() {
  return Get(error_);
}

void Response::SetError(cef_errorcode_t error) {
  Set(&error_, error);
}

int Response::GetStatus() {
  return Get(status_);
}

void Response::SetStatus(int status) {
  Set(&status_, status);
}

CefString Response::GetStatusText() {
  return Get(status_text_);
}

void Response::SetStatusText(const CefString& statusText) {
  Set(&status_text_, statusText);
}

CefString Response::GetMimeType() {
  return Get(mime_type_);
}

void Response::SetMimeType(const CefString& mimeType) {
  Set(&mime_type_, mimeType);
}

CefString Response::GetCharset() {
  return Get(charset_);
}

void Response::SetCharset(const CefString& charset) {
  Set(&charset_, charset);
}

CefString Response::GetHeaderByName(const CefString& name) {
  const std::lock_guard lock(lock_);
  return FindHeader(headers_, name);
}

void Response::SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) {
  const std::lock_guard lock(lock_);
  if (!read_only_ && !name.empty()) {
    SetHeader(&headers_, name, value, overwrite);
  }
}

void Response::GetHeaderMap(HeaderMap& headerMap) {
  headerMap = Get(headers_);
}

void Response::SetHeaderMap(const HeaderMap& headerMap) {
  Set(&headers_, headerMap);
}

CefString Response::GetURL() {
  return Get(url_);
}

void Response::SetURL(const CefString& url) {
  Set(&url_, url);
}

}  // namespace cefedition

CefRefPtr<CefResponse> CefResponse::Create() {
  return new cefedition::Response;
}
