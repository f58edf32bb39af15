#include "devtools/request_content.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <vector>

#include "base/portable/ascii.h"
#include "base/portable/url.h"
#include "devtools/base64_bytes.h"
#include "devtools/json_fields.h"
#include "include/cef_parser.h"
#include "include/cef_stream.h"

namespace cefedition {
namespace {

constexpr size_t kFileChunk = size_t{64} * 1024;

struct NamedType {
  std::string_view name;
  cef_resource_type_t type;
};

// The protocol has one word for a page's own requests by XMLHttpRequest and fetch(); others that a
// script starts count with them, as in Chromium.
constexpr std::array kTypes = {
    NamedType{"Stylesheet", RT_STYLESHEET},
    NamedType{"Image", RT_IMAGE},
    NamedType{"Media", RT_MEDIA},
    NamedType{"Font", RT_FONT_RESOURCE},
    NamedType{"Script", RT_SCRIPT},
    NamedType{"XHR", RT_XHR},
    NamedType{"Fetch", RT_XHR},
    NamedType{"EventSource", RT_XHR},
    NamedType{"Prefetch", RT_PREFETCH},
    NamedType{"Ping", RT_PING},
    NamedType{"CSPViolationReport", RT_CSP_REPORT},
};

struct NamedPolicy {
  std::string_view name;
  cef_referrer_policy_t policy;
};

constexpr std::array kPolicies = {
    NamedPolicy{"unsafe-url", REFERRER_POLICY_NEVER_CLEAR_REFERRER},
    NamedPolicy{"no-referrer-when-downgrade",
                REFERRER_POLICY_CLEAR_REFERRER_ON_TRANSITION_FROM_SECURE_TO_INSECURE},
    NamedPolicy{"no-referrer", REFERRER_POLICY_NO_REFERRER},
    NamedPolicy{"origin", REFERRER_POLICY_ORIGIN},
    NamedPolicy{"origin-when-cross-origin", REFERRER_POLICY_ORIGIN_ONLY_ON_TRANSITION_CROSS_ORIGIN},
    NamedPolicy{"same-origin", REFERRER_POLICY_CLEAR_REFERRER_ON_TRANSITION_CROSS_ORIGIN},
    NamedPolicy{"strict-origin",
                REFERRER_POLICY_ORIGIN_CLEAR_ON_TRANSITION_FROM_SECURE_TO_INSECURE},
    NamedPolicy{"strict-origin-when-cross-origin",
                REFERRER_POLICY_REDUCE_REFERRER_GRANULARITY_ON_TRANSITION_CROSS_ORIGIN},
};

cef_referrer_policy_t PolicyOf(const std::string& name) {
  for (const NamedPolicy& known : kPolicies) {
    if (known.name == name) {
      return known.policy;
    }
  }
  return REFERRER_POLICY_DEFAULT;
}

std::string Trimmed(std::string_view text) {
  const size_t start = text.find_first_not_of(" \t\"");
  const size_t end = text.find_last_not_of(" \t\"");
  return start == std::string_view::npos ? std::string()
                                         : std::string(text.substr(start, end - start + 1));
}

bool IsRedirectStatus(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

std::string ReadFile(const CefString& path) {
  std::string text;
  const CefRefPtr<CefStreamReader> reader = CefStreamReader::CreateForFile(path);
  for (size_t count = reader ? kFileChunk : 0; count > 0;) {
    const size_t filled = text.size();
    text.resize(filled + kFileChunk);
    count = reader->Read(text.data() + filled, 1, kFileChunk);
    text.resize(filled + count);
  }
  return text;
}

}  // namespace

std::string RequestUrl(const Json& request) {
  return TextField(request, "url") + TextField(request, "urlFragment");
}

CefRefPtr<Request> RequestFromProtocol(const Json& request) {
  CefRefPtr<Request> result = new Request;
  result->SetURL(RequestUrl(request));
  result->SetMethod(TextField(request, "method"));
  CefRequest::HeaderMap headers;
  for (const auto& [name, value] : Field(request, "headers").items()) {
    if (!value.is_string()) {
      continue;
    }
    // CEF keeps the referrer apart from the headers.
    if (name == "Referer") {
      result->SetReferrer(value.get<std::string>(), PolicyOf(TextField(request, "referrerPolicy")));
    } else {
      headers.emplace(name, value.get<std::string>());
    }
  }
  result->SetHeaderMap(headers);
  const Json& entries = Field(request, "postDataEntries");
  if (entries.is_array()) {
    for (const Json& entry : entries) {
      const std::vector<uint8_t> bytes = DecodeBase64(TextField(entry, "bytes"));
      AddBodyBytes(*result, bytes.data(), bytes.size());
    }
  }
  return result;
}

void AddBodyBytes(Request& request, const void* bytes, size_t size) {
  CefRefPtr<CefPostData> body = request.GetPostData();
  if (!body) {
    body = CefPostData::Create();
    request.SetPostData(body);
  }
  CefRefPtr<CefPostDataElement> element = CefPostDataElement::Create();
  element->SetToBytes(size, size > 0 ? bytes : "");
  body->AddElement(element);
}

CefRefPtr<Response> ResponseFromProtocol(const Json& paused, const std::string& url) {
  CefResponse::HeaderMap headers;
  const Json& entries = Field(paused, "responseHeaders");
  if (entries.is_array()) {
    for (const Json& entry : entries) {
      headers.emplace(TextField(entry, "name"), TextField(entry, "value"));
    }
  }
  return MakeResponse(IntField(paused, "responseStatusCode"),
                      TextField(paused, "responseStatusText"), headers, url);
}

CefRefPtr<Response> MakeResponse(int status,
                                 const std::string& status_text,
                                 const CefResponse::HeaderMap& headers,
                                 const std::string& url) {
  CefRefPtr<Response> response = new Response;
  response->SetStatus(status);
  response->SetStatusText(status_text);
  response->SetHeaderMap(headers);
  response->SetURL(url);
  const std::string content_type = response->GetHeaderByName("Content-Type").ToString();
  response->SetMimeType(ToLowerAscii(Trimmed(content_type.substr(0, content_type.find(';')))));
  constexpr std::string_view kCharset = "charset=";
  const size_t charset = ToLowerAscii(content_type).find(kCharset);
  if (charset != std::string::npos) {
    const size_t start = charset + kCharset.size();
    response->SetCharset(
        Trimmed(content_type.substr(start, content_type.find(';', start) - start)));
  }
  response->SetReadOnly(true);
  return response;
}

cef_resource_type_t ResourceTypeOf(const std::string& protocol_type, bool is_main_frame) {
  if (protocol_type == "Document") {
    return is_main_frame ? RT_MAIN_FRAME : RT_SUB_FRAME;
  }
  for (const NamedType& known : kTypes) {
    if (known.name == protocol_type) {
      return known.type;
    }
  }
  return RT_SUB_RESOURCE;
}

std::string RedirectTarget(Response& response) {
  const std::string location = response.GetHeaderByName("Location").ToString();
  return IsRedirectStatus(response.GetStatus()) && !location.empty()
             ? ResolveAgainst(response.GetURL().ToString(), location)
             : std::string();
}

std::string ResolveAgainst(const std::string& base, const std::string& text) {
  const std::optional<Url> from = ParseUrl(base);
  const std::optional<Url> to = from ? ResolveUrl(*from, text) : ParseUrl(text);
  return to ? to->spec : std::string();
}

std::string OriginText(const std::string& url) {
  const std::optional<Url> parsed = ParseUrl(url);
  std::string origin = parsed ? OriginOf(*parsed) : std::string();
  if (origin.ends_with('/')) {
    origin.pop_back();
  }
  return origin;
}

std::string BodyText(CefPostData& body) {
  std::string text;
  CefPostData::ElementVector elements;
  body.GetElements(elements);
  for (const CefRefPtr<CefPostDataElement>& element : elements) {
    if (element->GetType() == PDE_TYPE_FILE) {
      text += ReadFile(element->GetFile());
    } else {
      const size_t filled = text.size();
      const size_t count = element->GetBytesCount();
      text.resize(filled + count);
      text.resize(filled + element->GetBytes(count, text.data() + filled));
    }
  }
  return text;
}

RequestContent::RequestContent(Request& request)
    : url(request.GetURL().ToString()),
      method(request.GetMethod().ToString()),
      referrer(request.GetReferrerURL().ToString()) {
  request.GetHeaderMap(headers);
  if (const CefRefPtr<CefPostData> data = request.GetPostData()) {
    body = BodyText(*data);
  }
}

RequestChanges::RequestChanges(const RequestContent& before, Request& now) {
  const RequestContent after(now);
  if (after.method != before.method) {
    method = after.method;
  }
  if (after.headers != before.headers || after.referrer != before.referrer) {
    headers = after.headers;
    referrer = after.referrer;
  }
  if (after.body != before.body) {
    body = now.GetPostData();
  }
}

void RequestChanges::ApplyTo(Request& request) const {
  if (method) {
    request.SetMethod(*method);
  }
  if (headers) {
    CefRequest::HeaderMap unique;
    for (const Json& header : HeadersToProtocol(*headers, /*unique_names=*/true)) {
      unique.emplace(TextField(header, "name"), TextField(header, "value"));
    }
    request.SetHeaderMap(unique);
    request.SetReferrer(referrer, request.GetReferrerPolicy());
  }
  if (body) {
    request.SetPostData(body);
  }
}

void RequestChanges::AddTo(Json& params) const {
  if (method) {
    params["method"] = *method;
  }
  if (headers) {
    params["headers"] = HeadersToProtocol(*headers, /*unique_names=*/true);
    if (!referrer.empty()) {
      params["headers"].push_back({{"name", "Referer"}, {"value", referrer}});
    }
  }
  if (body) {
    params["postData"] = EncodeBase64(BodyText(*body));
  }
}

std::string AcceptLanguageHeader(const std::string& languages) {
  std::string header;
  // Each counts a tenth less than the one before it, the last ones a tenth.
  int tenths = 10;
  std::istringstream list(languages);
  for (std::string language; std::getline(list, language, ',');) {
    language = Trimmed(language);
    if (language.empty()) {
      continue;
    }
    header += header.empty() ? language : "," + language;
    if (tenths < 10) {
      header += ";q=0." + std::to_string(tenths);
    }
    tenths = std::max(tenths - 1, 1);
  }
  return header;
}

Json HeadersToProtocol(const CefRequest::HeaderMap& headers, bool unique_names) {
  Json list = Json::array();
  for (const auto& [name, value] : headers) {
    const std::string key = name.ToString();
    if (key.empty()) {
      continue;
    }
    if (unique_names) {
      const std::string lower = ToLowerAscii(key);
      const auto same = std::find_if(list.begin(), list.end(), [&](const Json& known) {
        return ToLowerAscii(TextField(known, "name")) == lower;
      });
      if (same != list.end()) {
        list.erase(same);
      }
    }
    list.push_back({{"name", key}, {"value", value.ToString()}});
  }
  return list;
}

}  // namespace cefedition
