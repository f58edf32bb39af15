#pragma once

#include <mutex>

#include "header_map.h"
#include "include/cef_request.h"

namespace cefedition {

// A request with the properties that only the engine sets.
class Request final : public CefRequest {
 public:
  Request() = default;

  // While a request is read-only, setters do nothing. Its body becomes so with it.
  void SetReadOnly(bool read_only);
  void SetIdentifier(uint64_t identifier);
  void SetResourceType(ResourceType type);
  void SetTransitionType(TransitionType type);

  bool IsReadOnly() override;
  CefString GetURL() override;
  void SetURL(const CefString& url) override;
  CefString GetMethod() override;
  void SetMethod(const CefString& method) override;
  void SetReferrer(const CefString& referrer_url, ReferrerPolicy policy) override;
  CefString GetReferrerURL() override;
  ReferrerPolicy GetReferrerPolicy() override;
  CefRefPtr<CefPostData> GetPostData() override;
  void SetPostData(CefRefPtr<CefPostData> postData) override;
  void GetHeaderMap(HeaderMap& headerMap) override;
  void SetHeaderMap(const HeaderMap& headerMap) override;
  CefString GetHeaderByName(const CefString& name) override;
  void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) override;
  void Set(const CefString& url,
           const CefString& method,
           CefRefPtr<CefPostData> postData,
           const HeaderMap& headerMap) override;
  int GetFlags() override;
  void SetFlags(int flags) override;
  CefString GetFirstPartyForCookies() override;
  void SetFirstPartyForCookies(const CefString& url) override;
  ResourceType GetResourceType() override;
  TransitionType GetTransitionType() override;
  uint64_t GetIdentifier() override;

 private:
  // Without the referrer, which the browser treats apart from the other headers.
  void TakeHeaders(const HeaderMap& headers);

  std::recursive_mutex lock_;
  bool read_only_ = false;
  CefString url_;
  CefString method_{"GET"};
  CefString referrer_;
  ReferrerPolicy referrer_policy_ = REFERRER_POLICY_DEFAULT;
  CefRefPtr<CefPostData> post_data_;
  HeaderMap headers_;
  int flags_ = UR_FLAG_NONE;
  CefString first_party_;
  ResourceType resource_type_ = RT_SUB_RESOURCE;
  TransitionType transition_type_ = TT_EXPLICIT;
  uint64_t identifier_ = 0;

  IMPLEMENT_REFCOUNTING(Request);
};

// Makes a body and its elements read-only or not. Objects of other classes are left alone.
void SetReadOnly(CefPostData* post_data, bool read_only);

}  // namespace cefedition
