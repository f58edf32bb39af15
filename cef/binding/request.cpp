// include/cef_request.h over the C API.

#include "include/cef_request.h"

#include <optional>

#include "binding.h"
#include "request_detours.h"

namespace cefbinding {
namespace {

class RequestObject : public LibraryObject<CefRequest> {
 public:
  explicit RequestObject(Struct* object) : LibraryObject(object) {}

  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  CefString GetURL() override { return Call(&Struct::get_url); }
  void SetURL(const CefString& url) override { Call(&Struct::set_url, Needed(url)); }
  CefString GetMethod() override { return Call(&Struct::get_method); }
  void SetMethod(const CefString& method) override { Call(&Struct::set_method, Needed(method)); }
  void SetReferrer(const CefString& referrer_url, ReferrerPolicy policy) override {
    Call(&Struct::set_referrer, referrer_url, policy);
  }
  CefString GetReferrerURL() override { return Call(&Struct::get_referrer_url); }
  ReferrerPolicy GetReferrerPolicy() override { return Call(&Struct::get_referrer_policy); }
  CefRefPtr<CefPostData> GetPostData() override { return Call(&Struct::get_post_data); }
  void SetPostData(CefRefPtr<CefPostData> postData) override {
    Call(&Struct::set_post_data, postData);
  }
  void GetHeaderMap(HeaderMap& headerMap) override { Call(&Struct::get_header_map, &headerMap); }
  void SetHeaderMap(const HeaderMap& headerMap) override {
    Call(&Struct::set_header_map, headerMap);
  }
  CefString GetHeaderByName(const CefString& name) override {
    return Call(&Struct::get_header_by_name, Needed(name));
  }
  void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) override {
    Call(&Struct::set_header_by_name, Needed(name), value, overwrite);
  }
  void Set(const CefString& url,
           const CefString& method,
           CefRefPtr<CefPostData> postData,
           const HeaderMap& headerMap) override {
    Call(&Struct::set, Needed(url), Needed(method), postData, headerMap);
  }
  int GetFlags() override { return Call(&Struct::get_flags); }
  void SetFlags(int flags) override { Call(&Struct::set_flags, flags); }
  CefString GetFirstPartyForCookies() override {
    return Call(&Struct::get_first_party_for_cookies);
  }
  void SetFirstPartyForCookies(const CefString& url) override {
    Call(&Struct::set_first_party_for_cookies, url);
  }
  ResourceType GetResourceType() override { return Call(&Struct::get_resource_type); }
  TransitionType GetTransitionType() override { return Call(&Struct::get_transition_type); }
  uint64_t GetIdentifier() override { return Call(&Struct::get_identifier); }
};

class RequestWithOwnUrl final : public RequestObject {
 public:
  explicit RequestWithOwnUrl(Struct* object) : RequestObject(object) {}

  CefString GetURL() override { return own_url_ ? *own_url_ : RequestObject::GetURL(); }
  void SetURL(const CefString& url) override {
    if (!url.empty()) {
      own_url_ = url;
    }
  }
  void Set(const CefString& url,
           const CefString& method,
           CefRefPtr<CefPostData> postData,
           const HeaderMap& headerMap) override {
    SetURL(url);
    RequestObject::Set(RequestObject::GetURL(), method, postData, headerMap);
  }

 private:
  std::optional<CefString> own_url_;
};

class PostDataObject final : public LibraryObject<CefPostData> {
 public:
  explicit PostDataObject(Struct* object) : LibraryObject(object) {}

  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  bool HasExcludedElements() override { return Call(&Struct::has_excluded_elements); }
  size_t GetElementCount() override { return Call(&Struct::get_element_count); }
  void GetElements(ElementVector& elements) override {
    std::vector<capi::cef_post_data_element_t*> objects(GetElementCount());
    size_t count = objects.size();
    Call(&Struct::get_elements, &count, objects.data());
    objects.resize(std::min(count, objects.size()));
    elements = RewrapAll<CefPostDataElement>(objects);
  }
  bool RemoveElement(CefRefPtr<CefPostDataElement> element) override {
    return Call(&Struct::remove_element, element);
  }
  bool AddElement(CefRefPtr<CefPostDataElement> element) override {
    return Call(&Struct::add_element, element);
  }
  void RemoveElements() override { Call(&Struct::remove_elements); }
};

class PostDataElementObject final : public LibraryObject<CefPostDataElement> {
 public:
  explicit PostDataElementObject(Struct* object) : LibraryObject(object) {}

  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  void SetToEmpty() override { Call(&Struct::set_to_empty); }
  void SetToFile(const CefString& fileName) override {
    Call(&Struct::set_to_file, Needed(fileName));
  }
  void SetToBytes(size_t size, const void* bytes) override {
    Call(&Struct::set_to_bytes, size, bytes);
  }
  Type GetType() override { return Call(&Struct::get_type); }
  CefString GetFile() override { return Call(&Struct::get_file); }
  size_t GetBytesCount() override { return Call(&Struct::get_bytes_count); }
  size_t GetBytes(size_t size, void* bytes) override {
    return Call(&Struct::get_bytes, size, bytes);
  }
};

}  // namespace

template <>
CefRefPtr<CefRequest> Counterpart<CefRequest>::LibraryClass::Wrap(Struct* object) {
  return new RequestObject(object);
}

CefRefPtr<CefRequest> WithOwnUrl(const CefRefPtr<CefRequest>& request) {
  return new RequestWithOwnUrl(Unwrap(request));
}

template <>
CefRefPtr<CefPostData> Counterpart<CefPostData>::LibraryClass::Wrap(Struct* object) {
  return new PostDataObject(object);
}

template <>
CefRefPtr<CefPostDataElement> Counterpart<CefPostDataElement>::LibraryClass::Wrap(Struct* object) {
  return new PostDataElementObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefRequest> CefRequest::Create() {
  return CallEngine(&capi::Functions::cef_request_create);
}

CefRefPtr<CefPostData> CefPostData::Create() {
  return CallEngine(&capi::Functions::cef_post_data_create);
}

CefRefPtr<CefPostDataElement> CefPostDataElement::Create() {
  return CallEngine(&capi::Functions::cef_post_data_element_create);
}
