#include "include/cef_parser.h"
#include "portable/base64.h"
#include "portable/mime_types.h"
#include "portable/percent.h"
#include "portable/url.h"

namespace {

std::string Text(const cef_string_t& text) {
  return CefString(&text).ToString();
}

void Fill(const cefedition::Url& url, CefURLParts* parts) {
  CefString(&parts->spec).FromString(url.spec);
  CefString(&parts->scheme).FromString(url.scheme);
  CefString(&parts->username).FromString(url.username);
  CefString(&parts->password).FromString(url.password);
  CefString(&parts->host).FromString(url.host);
  CefString(&parts->port).FromString(url.port);
  CefString(&parts->origin).FromString(cefedition::OriginOf(url));
  CefString(&parts->path).FromString(url.path);
  CefString(&parts->query).FromString(url.query);
  CefString(&parts->fragment).FromString(url.fragment);
}

}  // namespace

bool CefResolveURL(const CefString& base_url,
                   const CefString& relative_url,
                   CefString& resolved_url) {
  if (relative_url.empty()) {
    return false;
  }
  const auto base = cefedition::ParseUrl(base_url.ToString());
  const auto resolved =
      base ? cefedition::ResolveUrl(*base, relative_url.ToString()) : std::nullopt;
  if (!resolved) {
    return false;
  }
  resolved_url = resolved->spec;
  return true;
}

bool CefParseURL(const CefString& url, CefURLParts& parts) {
  const auto parsed = cefedition::ParseUrl(url.ToString());
  if (parsed) {
    Fill(*parsed, &parts);
  }
  return parsed.has_value();
}

bool CefCreateURL(const CefURLParts& parts, CefString& url) {
  const auto made =
      parts.spec.length > 0
          ? cefedition::ParseUrl(Text(parts.spec))
          : cefedition::MakeUrl({Text(parts.scheme), Text(parts.username), Text(parts.password),
                                 Text(parts.host), Text(parts.port), Text(parts.path),
                                 Text(parts.query), Text(parts.fragment)});
  if (!made) {
    return false;
  }
  url = made->spec;
  return true;
}

CefString CefFormatUrlForSecurityDisplay(const CefString& origin_url) {
  const auto url = cefedition::ParseUrl(origin_url.ToString());
  if (!url) {
    return CefString();
  }
  if (url->scheme == "file") {
    return "file://" + url->path;
  }
  std::string origin = cefedition::OriginOf(*url);
  if (!origin.empty()) {
    origin.pop_back();
  }
  return origin.empty() ? url->spec : origin;
}

CefString CefGetMimeType(const CefString& extension) {
  return cefedition::MimeTypeFor(extension.ToString());
}

void CefGetExtensionsForMimeType(const CefString& mime_type, std::vector<CefString>& extensions) {
  for (const std::string& extension : cefedition::ExtensionsFor(mime_type.ToString())) {
    extensions.push_back(extension);
  }
}

CefString CefBase64Encode(const void* data, size_t data_size) {
  if (!data || data_size == 0) {
    return CefString();
  }
  return cefedition::Base64Encode({static_cast<const uint8_t*>(data), data_size});
}

// No bytes are no value: an empty text gives null like a malformed one.
CefRefPtr<CefBinaryValue> CefBase64Decode(const CefString& data) {
  const auto decoded = cefedition::Base64Decode(data.ToString());
  return decoded ? CefBinaryValue::Create(decoded->data(), decoded->size()) : nullptr;
}

CefString CefURIEncode(const CefString& text, bool use_plus) {
  return cefedition::PercentEncode(text.ToString(), use_plus);
}

// What is decoded is UTF-8 already: bytes that are not stay encoded. So |convert_to_utf8| changes
// nothing.
CefString CefURIDecode(const CefString& text,
                       bool /*convert_to_utf8*/,
                       cef_uri_unescape_rule_t unescape_rule) {
  if (unescape_rule == UU_NONE) {
    return text;
  }
  return cefedition::PercentDecode(
      text.ToString(),
      {.spaces = (unescape_rule & UU_SPACES) != 0,
       .path_separators = (unescape_rule & UU_PATH_SEPARATORS) != 0,
       .special = (unescape_rule & UU_URL_SPECIAL_CHARS_EXCEPT_PATH_SEPARATORS) != 0,
       .plus_to_space = (unescape_rule & UU_REPLACE_PLUS_WITH_SPACE) != 0});
}
