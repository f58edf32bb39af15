#include "request.h"

#include "portable/url.h"

namespace cefedition {

void Request::SetReadOnly(bool read_only) {
  const std::lock_guard lock(lock_);
  read_only_ = read_only;
  cefedition::SetReadOnly(post_data_.get(), read_only);
}

void Request::SetIdentifier(uint64_t identifier) {
  const std::lock_guard lock(lock_);
  identifier_ = identifier;
}

void Request::SetResourceType(ResourceType type) {
  const std::lock_guard lock(lock_);
  resource_type_ = type;
}

void Request::SetTransitionType(TransitionType type) {
  const std::lock_guard lock(lock_);
  transition_type_ = type;
}

bool Request::IsReadOnly() {
  const std::lock_guard lock(lock_);
  return read_only_;
}

CefString Request::GetURL() {
  const std::lock_guard lock(lock_);
  return url_;
}

// As the browser would write it; a text that is no URL leaves an empty one.
void Request::SetURL(const CefString& url) {
  const std::lock_guard lock(lock_);
  if (!read_only_ && !url.empty()) {
    const std::optional<Url> parsed = ParseUrl(url.ToString());
    url_ = parsed ? parsed->spec : std::string();
  }
}

CefString Request::GetMethod() {
  const std::lock_guard lock(lock_);
  return method_;
}

void Request::SetMethod(const CefString& method) {
  const std::lock_guard lock(lock_);
  if (!read_only_ && !method.empty()) {
    method_ = method;
  }
}

// Only HTTP URLs are ever sent as referrers, and never with credentials or fragment.
void Request::SetReferrer(const CefString& referrer_url, ReferrerPolicy policy) {
  const std::lock_guard lock(lock_);
  if (read_only_) {
    return;
  }
  const std::optional<Url> parsed = ParseUrl(referrer_url.ToString());
  referrer_ = parsed ? AsReferrer(*parsed) : std::string();
  referrer_policy_ = policy;
}

CefString Request::GetReferrerURL() {
  const std::lock_guard lock(lock_);
  return referrer_;
}

CefRequest::ReferrerPolicy Request::GetReferrerPolicy() {
  const std::lock_guard lock(lock_);
  return referrer_policy_;
}

CefRefPtr<CefPostData> Request::GetPostData() {
  const std::lock_guard lock(lock_);
  return post_data_;
}

void Request::SetPostData(CefRefPtr<CefPostData> postData) {
  const std::lock_guard lock(lock_);
  if (!read_only_ && postData) {
    post_data_ = postData;
  }
}

void Request::GetHeaderMap(HeaderMap& headerMap) {
  const std::lock_guard lock(lock_);
  headerMap = headers_;
}

void Request::SetHeaderMap(const HeaderMap& headerMap) {
  const std::lock_guard lock(lock_);
  if (!read_only_) {
    TakeHeaders(headerMap);
  }
}

CefString Request::GetHeaderByName(const CefString& name) {
  const std::lock_guard lock(lock_);
  return FindHeader(headers_, name);
}

void Request::SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) {
  const std::lock_guard lock(lock_);
  if (!read_only_ && !name.empty()) {
    SetHeader(&headers_, name, value, overwrite);
    EraseHeader(&headers_, "Referer");
  }
}

void Request::Set(const CefString& url,
                  const CefString& method,
                  CefRefPtr<CefPostData> postData,
                  const HeaderMap& headerMap) {
  const std::lock_guard lock(lock_);
  if (!read_only_ && !url.empty() && !method.empty()) {
    SetURL(url);
    method_ = method;
    post_data_ = postData;
    TakeHeaders(headerMap);
  }
}

int Request::GetFlags() {
  const std::lock_guard lock(lock_);
  return flags_;
}

void Request::SetFlags(int flags) {
  const std::lock_guard lock(lock_);
  if (!read_only_) {
    flags_ = flags;
  }
}

CefString Request::GetFirstPartyForCookies() {
  const std::lock_guard lock(lock_);
  return first_party_;
}

void Request::SetFirstPartyForCookies(const CefString& url) {
  const std::lock_guard lock(lock_);
  if (!read_only_) {
    first_party_ = url;
  }
}

CefRequest::ResourceType Request::GetResourceType() {
  const std::lock_guard lock(lock_);
  return resource_type_;
}

CefRequest::TransitionType Request::GetTransitionType() {
  const std::lock_guard lock(lock_);
  return transition_type_;
}

uint64_t Request::GetIdentifier() {
  const std::lock_guard lock(lock_);
  return identifier_;
}

void Request::TakeHeaders(const HeaderMap& headers) {
  headers_ = headers;
  EraseHeader(&headers_, "Referer");
}

}  // namespace cefedition

CefRefPtr<CefRequest> CefRequest::Create() {
  return new cefedition::Request;
}
