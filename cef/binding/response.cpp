// include/cef_response.h over the C API.

#include "include/cef_response.h"

#include "binding.h"

namespace cefbinding {
namespace {

class ResponseObject final : public LibraryObject<CefResponse> {
 public:
  explicit ResponseObject(Struct* object) : LibraryObject(object) {}

  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  cef_errorcode_t GetError() override { return Call(&Struct::get_error); }
  void SetError(cef_errorcode_t error) override { Call(&Struct::set_error, error); }
  int GetStatus() override { return Call(&Struct::get_status); }
  void SetStatus(int status) override { Call(&Struct::set_status, status); }
  CefString GetStatusText() override { return Call(&Struct::get_status_text); }
  void SetStatusText(const CefString& statusText) override {
    Call(&Struct::set_status_text, statusText);
  }
  CefString GetMimeType() override { return Call(&Struct::get_mime_type); }
  void SetMimeType(const CefString& mimeType) override { Call(&Struct::set_mime_type, mimeType); }
  CefString GetCharset() override { return Call(&Struct::get_charset); }
  void SetCharset(const CefString& charset) override { Call(&Struct::set_charset, charset); }
  CefString GetHeaderByName(const CefString& name) override {
    return Call(&Struct::get_header_by_name, Needed(name));
  }
  void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) override {
    Call(&Struct::set_header_by_name, Needed(name), value, overwrite);
  }
  void GetHeaderMap(HeaderMap& headerMap) override { Call(&Struct::get_header_map, &headerMap); }
  void SetHeaderMap(const HeaderMap& headerMap) override {
    Call(&Struct::set_header_map, headerMap);
  }
  CefString GetURL() override { return Call(&Struct::get_url); }
  void SetURL(const CefString& url) override { Call(&Struct::set_url, url); }
};

}  // namespace

template <>
CefRefPtr<CefResponse> Counterpart<CefResponse>::LibraryClass::Wrap(Struct* object) {
  return new ResponseObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefResponse> CefResponse::Create() {
  return CallEngine(&capi::Functions::cef_response_create);
}
