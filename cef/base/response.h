#pragma once

#include <mutex>

#include "header_map.h"
#include "include/cef_response.h"

namespace cefedition {

// A response with the property that only the engine sets.
class Response final : public CefResponse {
 public:
  Response() = default;

  // While a response is read-only, setters do nothing.
  void SetReadOnly(bool read_only);

  bool IsReadOnly() override;
  cef_errorcode_t GetError() override;
  void SetError(cef_errorcode_t error) override;
  int GetStatus() override;
  void SetStatus(int status) override;
  CefString GetStatusText() override;
  void SetStatusText(const CefString& statusText) override;
  CefString GetMimeType() override;
  void SetMimeType(const CefString& mimeType) override;
  CefString GetCharset() override;
  void SetCharset(const CefString& charset) override;
  CefString GetHeaderByName(const CefString& name) override;
  void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) override;
  void GetHeaderMap(HeaderMap& headerMap) override;
  void SetHeaderMap(const HeaderMap& headerMap) override;
  CefString GetURL() override;
  void SetURL(const CefString& url) override;

 private:
  template <typename T>
  T Get(const T& member) {
    const std::lock_guard lock(lock_);
    return member;
  }
  template <typename T>
  void Set(T* member, const T& value) {
    const std::lock_guard lock(lock_);
    if (!read_only_) {
      *member = value;
    }
  }

  std::mutex lock_;
  bool read_only_ = false;
  cef_errorcode_t error_ = ERR_NONE;
  int status_ = 0;
  CefString status_text_;
  CefString mime_type_;
  CefString charset_;
  CefString url_;
  HeaderMap headers_;

  IMPLEMENT_REFCOUNTING(Response);
};

}  // namespace cefedition
