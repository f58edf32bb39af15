// include/cef_response.h of CEF 123, as far as it is used here: a response and its headers.
#pragma once

#include <map>

#include "include/cef_base.h"

// A response. Any thread; read-only where a callback says so.
class CefResponse : public virtual CefBaseRefCounted {
 public:
  typedef std::multimap<CefString, CefString> HeaderMap;

  static CefRefPtr<CefResponse> Create();
  virtual bool IsReadOnly() = 0;
  virtual cef_errorcode_t GetError() = 0;
  virtual void SetError(cef_errorcode_t error) = 0;
  virtual int GetStatus() = 0;
  virtual void SetStatus(int status) = 0;
  virtual CefString GetStatusText() = 0;
  virtual void SetStatusText(const CefString& statusText) = 0;
  virtual CefString GetMimeType() = 0;
  virtual void SetMimeType(const CefString& mimeType) = 0;
  virtual CefString GetCharset() = 0;
  virtual void SetCharset(const CefString& charset) = 0;
  virtual CefString GetHeaderByName(const CefString& name) = 0;
  virtual void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) = 0;
  virtual void GetHeaderMap(HeaderMap& headerMap) = 0;
  virtual void SetHeaderMap(const HeaderMap& headerMap) = 0;
  virtual CefString GetURL() = 0;
  virtual void SetURL(const CefString& url) = 0;
};
