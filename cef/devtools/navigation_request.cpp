#include "devtools/navigation_request.h"

#include "devtools/base64_bytes.h"
#include "devtools/json_fields.h"

namespace cefedition {
namespace {

/// A request that cannot be changed, with what only the engine knows about it.
class FixedRequest : public CefRequest {
 public:
  FixedRequest(CefRefPtr<CefRequest> content, ResourceType resource, TransitionType transition)
      : content_(content), resource_(resource), transition_(transition) {}

  bool IsReadOnly() override { return true; }
  CefString GetURL() override { return content_->GetURL(); }
  void SetURL(const CefString&) override {}
  CefString GetMethod() override { return content_->GetMethod(); }
  void SetMethod(const CefString&) override {}
  void SetReferrer(const CefString&, ReferrerPolicy) override {}
  CefString GetReferrerURL() override { return content_->GetReferrerURL(); }
  ReferrerPolicy GetReferrerPolicy() override { return content_->GetReferrerPolicy(); }
  CefRefPtr<CefPostData> GetPostData() override { return content_->GetPostData(); }
  void SetPostData(CefRefPtr<CefPostData>) override {}
  void GetHeaderMap(HeaderMap& headerMap) override { content_->GetHeaderMap(headerMap); }
  void SetHeaderMap(const HeaderMap&) override {}
  CefString GetHeaderByName(const CefString& name) override {
    return content_->GetHeaderByName(name);
  }
  void SetHeaderByName(const CefString&, const CefString&, bool) override {}
  void Set(const CefString&, const CefString&, CefRefPtr<CefPostData>, const HeaderMap&) override {}
  int GetFlags() override { return content_->GetFlags(); }
  void SetFlags(int) override {}
  CefString GetFirstPartyForCookies() override { return content_->GetFirstPartyForCookies(); }
  void SetFirstPartyForCookies(const CefString&) override {}
  ResourceType GetResourceType() override { return resource_; }
  TransitionType GetTransitionType() override { return transition_; }
  uint64_t GetIdentifier() override { return content_->GetIdentifier(); }

 private:
  const CefRefPtr<CefRequest> content_;
  const ResourceType resource_;
  const TransitionType transition_;

  IMPLEMENT_REFCOUNTING(FixedRequest);
};

CefRefPtr<CefPostData> PostDataOf(const Json& request) {
  const Json& entries = Field(request, "postDataEntries");
  if (!entries.is_array() || entries.empty()) {
    return nullptr;
  }
  CefRefPtr<CefPostData> post_data = CefPostData::Create();
  for (const Json& entry : entries) {
    const std::vector<uint8_t> bytes = DecodeBase64(TextField(entry, "bytes"));
    CefRefPtr<CefPostDataElement> element = CefPostDataElement::Create();
    element->SetToBytes(bytes.size(), bytes.data());
    post_data->AddElement(element);
  }
  return post_data;
}

}  // namespace

std::string RequestUrl(const Json& request) {
  return TextField(request, "url") + TextField(request, "urlFragment");
}

CefRefPtr<CefRequest> MakeRequest(const NavigationRequest& navigation,
                                  const Json* request,
                                  bool is_main) {
  CefRefPtr<CefRequest> content = CefRequest::Create();
  CefRequest::HeaderMap headers;
  std::string method = "GET";
  CefRefPtr<CefPostData> post_data;
  std::string referrer;
  if (request) {
    method = TextField(*request, "method");
    post_data = PostDataOf(*request);
    for (const auto& [name, value] : Field(*request, "headers").items()) {
      if (!value.is_string()) {
        continue;
      }
      // CEF keeps the referrer apart from the headers.
      if (name == "Referer") {
        referrer = value.get<std::string>();
      } else {
        headers.emplace(name, value.get<std::string>());
      }
    }
  }
  content->Set(navigation.url, method, post_data, headers);
  if (!referrer.empty()) {
    content->SetReferrer(referrer, REFERRER_POLICY_DEFAULT);
  }
  return new FixedRequest(content, is_main ? RT_MAIN_FRAME : RT_SUB_FRAME,
                          static_cast<cef_transition_type_t>(navigation.transition));
}

}  // namespace cefedition
