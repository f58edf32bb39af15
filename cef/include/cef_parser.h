#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_values.h"

// Splits |url| into its parts. False when it is empty or invalid.
bool CefParseURL(const CefString& url, CefURLParts& parts);

// Makes a URL of its parts: of |spec| if that is set, else of scheme, host and path at least.
bool CefCreateURL(const CefURLParts& parts, CefString& url);

// The MIME type for a file extension without its dot; empty if unknown.
CefString CefGetMimeType(const CefString& extension);

// Base64 with padding.
CefString CefBase64Encode(const void* data, size_t data_size);

// Decodes base64; null when |data| is not base64.
CefRefPtr<CefBinaryValue> CefBase64Decode(const CefString& data);
