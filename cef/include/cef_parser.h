// include/cef_parser.h of CEF 123, as far as it is used here: URLs, MIME types and base64.
#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_values.h"

// Splits |url| into its parts. Returns false when it is empty or invalid.
bool CefParseURL(const CefString& url, CefURLParts& parts);

// Makes a URL from |spec| if that is set, otherwise from the other parts, of which at least scheme
// and host must be set. Returns false when that gives no valid URL.
bool CefCreateURL(const CefURLParts& parts, CefString& url);

// Returns the MIME type for a file extension without its dot; empty if unknown.
CefString CefGetMimeType(const CefString& extension);

// Returns the data as base64 with padding.
CefString CefBase64Encode(const void* data, size_t data_size);

// Decodes base64. Returns null when |data| is not base64.
CefRefPtr<CefBinaryValue> CefBase64Decode(const CefString& data);
