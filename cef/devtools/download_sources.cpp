#include "devtools/download_sources.h"

#include <algorithm>

#include "ascii.h"
#include "devtools/json_fields.h"

namespace cefedition {
namespace {

constexpr size_t kRemembered = 50;

std::string Header(const Json& headers, std::string_view name) {
  for (const Json& header : headers) {
    if (ToLowerAscii(TextField(header, "name")) == name) {
      return TextField(header, "value");
    }
  }
  return {};
}

std::string WithoutParameters(const std::string& type) {
  const std::string bare = ToLowerAscii(type.substr(0, type.find_first_of(";,")));
  const size_t last = bare.find_last_not_of(" \t");
  return last != std::string::npos ? bare.substr(0, last + 1) : std::string();
}

// "data:text/plain;base64,..." says itself what it is.
std::string MimeTypeOfUrl(const std::string& url) {
  constexpr std::string_view kScheme = "data:";
  if (!url.starts_with(kScheme)) {
    return {};
  }
  const std::string type = WithoutParameters(url.substr(kScheme.size()));
  return type.empty() ? "text/plain" : type;
}

}  // namespace

bool DownloadSources::OnPaused(const Json& params) {
  const std::string halt_id = TextField(params, "requestId");
  const auto known = [this](const std::string& id) {
    return std::find_if(recent_.begin(), recent_.end(),
                        [&](const DownloadSource& source) { return source.halt_id == id; });
  };
  const auto found = known(halt_id);
  if (params.contains("responseStatusCode")) {
    if (found != recent_.end()) {
      const Json& headers = Field(params, "responseHeaders");
      found->content_disposition = Header(headers, "content-disposition");
      found->mime_type = WithoutParameters(Header(headers, "content-type"));
    }
    return found == recent_.end() || found->is_navigation;
  }
  if (params.contains("responseErrorReason")) {
    return found == recent_.end() || found->is_navigation;
  }
  const Json& request = Field(params, "request");
  DownloadSource source;
  source.halt_id = halt_id;
  source.url = TextField(request, "url");
  source.original_url = source.url;
  source.method = TextField(request, "method");
  // Every navigation asks for a secure place, and nothing else does.
  source.is_navigation = Field(request, "headers").contains("Upgrade-Insecure-Requests");
  const std::string before_id = TextField(params, "redirectedRequestId");
  const auto before = before_id.empty() ? found : known(before_id);
  if (before != recent_.end()) {
    source.original_url = before->original_url;
    source.is_navigation = before->is_navigation;
    recent_.erase(before);
  }
  recent_.push_back(std::move(source));
  if (recent_.size() > kRemembered) {
    recent_.pop_front();
  }
  return recent_.back().is_navigation;
}

DownloadSource DownloadSources::Find(const std::string& url) const {
  const auto found = std::find_if(recent_.rbegin(), recent_.rend(),
                                  [&](const DownloadSource& source) { return source.url == url; });
  if (found != recent_.rend()) {
    return *found;
  }
  DownloadSource source;
  source.url = url;
  source.original_url = url;
  source.method = "GET";
  source.mime_type = MimeTypeOfUrl(url);
  return source;
}

}  // namespace cefedition
