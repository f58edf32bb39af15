// include/cef_parser.h over the C API.

#include "include/cef_parser.h"

#include "binding.h"

using cefbinding::CallLibrary;
using cefbinding::Needed;

bool CefParseURL(const CefString& url, CefURLParts& parts) {
  return CallLibrary(&capi::Functions::cef_parse_url, Needed(url), &parts);
}

bool CefCreateURL(const CefURLParts& parts, CefString& url) {
  return CallLibrary(&capi::Functions::cef_create_url, parts, &url);
}

CefString CefGetMimeType(const CefString& extension) {
  return CallLibrary(&capi::Functions::cef_get_mime_type, Needed(extension));
}

CefString CefBase64Encode(const void* data, size_t data_size) {
  return data ? CefString(CallLibrary(&capi::Functions::cef_base64encode, data, data_size))
              : CefString();
}

CefRefPtr<CefBinaryValue> CefBase64Decode(const CefString& data) {
  return CallLibrary(&capi::Functions::cef_base64decode, Needed(data));
}
