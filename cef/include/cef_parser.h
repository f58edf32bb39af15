#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_values.h"

// Resolves |relative_url| against |base_url|. False when the base is invalid.
bool CefResolveURL(const CefString& base_url,
                   const CefString& relative_url,
                   CefString& resolved_url);

// Splits |url| into its parts. False when it is empty or invalid.
bool CefParseURL(const CefString& url, CefURLParts& parts);

// Makes a URL of its parts: of |spec| if that is set, else of scheme, host and path at least.
bool CefCreateURL(const CefURLParts& parts, CefString& url);

// The origin of a URL as it is shown to people.
CefString CefFormatUrlForSecurityDisplay(const CefString& origin_url);

// The MIME type for a file extension without its dot; empty if unknown.
CefString CefGetMimeType(const CefString& extension);

// The extensions known for a MIME type.
void CefGetExtensionsForMimeType(const CefString& mime_type, std::vector<CefString>& extensions);

// Base64 with padding.
CefString CefBase64Encode(const void* data, size_t data_size);

// Decodes base64; null when |data| is not base64.
CefRefPtr<CefBinaryValue> CefBase64Decode(const CefString& data);

// Percent-encodes everything but the unreserved characters; spaces become "+" if |use_plus|.
CefString CefURIEncode(const CefString& text, bool use_plus);

// Undoes percent-encoding as far as |unescape_rule| allows.
CefString CefURIDecode(const CefString& text,
                       bool convert_to_utf8,
                       cef_uri_unescape_rule_t unescape_rule);

// Parses JSON; null when it is malformed.
CefRefPtr<CefValue> CefParseJSON(const CefString& json_string, cef_json_parser_options_t options);
CefRefPtr<CefValue> CefParseJSON(const void* json,
                                 size_t json_size,
                                 cef_json_parser_options_t options);

// Parses JSON; null with a message when it is malformed.
CefRefPtr<CefValue> CefParseJSONAndReturnError(const CefString& json_string,
                                               cef_json_parser_options_t options,
                                               CefString& error_msg_out);

// Writes a value as JSON; empty when it cannot be written.
CefString CefWriteJSON(CefRefPtr<CefValue> node, cef_json_writer_options_t options);
