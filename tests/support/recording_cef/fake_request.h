// Requests and bodies that a test fills in, with what only a running engine would set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "include/cef_request.h"

namespace recording_cef {

// One element of a body.
class FakePostElement final : public CefPostDataElement {
 public:
  // What it returns.
  Type type = PDE_TYPE_EMPTY;
  CefString file;
  std::string bytes;

  // What is asked of it besides.
  int reads = 0;

  bool IsReadOnly() override { return true; }
  void SetToEmpty() override {}
  void SetToFile(const CefString&) override {}
  void SetToBytes(size_t, const void*) override {}
  Type GetType() override { return type; }
  CefString GetFile() override { return file; }
  size_t GetBytesCount() override { return bytes.size(); }
  size_t GetBytes(size_t size, void* target) override {
    ++reads;
    return bytes.copy(static_cast<char*>(target), size);
  }

  IMPLEMENT_REFCOUNTING(FakePostElement);
};

// A body of elements that are the tests' own, which the engine's would not take.
class FakePostData final : public CefPostData {
 public:
  ElementVector elements;

  bool IsReadOnly() override { return false; }
  bool HasExcludedElements() override { return false; }
  size_t GetElementCount() override { return elements.size(); }
  void GetElements(ElementVector& target) override { target = elements; }
  bool RemoveElement(CefRefPtr<CefPostDataElement>) override { return false; }
  bool AddElement(CefRefPtr<CefPostDataElement> element) override {
    elements.push_back(element);
    return true;
  }
  void RemoveElements() override { elements.clear(); }

  IMPLEMENT_REFCOUNTING(FakePostData);
};

// A request for tests that is what its members say: its URL as it was written, and a resource type
// and an identifier that otherwise only the engine gives.
class FakeRequest final : public CefRequest {
 public:
  explicit FakeRequest(const CefString& request_url = CefString()) : url(request_url) {}

  CefString url;
  CefString method = "GET";
  HeaderMap headers;
  CefRefPtr<CefPostData> post_data;
  ResourceType resource_type = RT_SUB_RESOURCE;
  uint64_t identifier = 1;
  // How often the URL was read.
  int url_reads = 0;

  bool IsReadOnly() override { return false; }
  CefString GetURL() override {
    ++url_reads;
    return url;
  }
  void SetURL(const CefString& new_url) override { url = new_url; }
  CefString GetMethod() override { return method; }
  void SetMethod(const CefString& new_method) override { method = new_method; }
  void SetReferrer(const CefString&, ReferrerPolicy) override {}
  CefString GetReferrerURL() override { return CefString(); }
  ReferrerPolicy GetReferrerPolicy() override { return REFERRER_POLICY_DEFAULT; }
  CefRefPtr<CefPostData> GetPostData() override { return post_data; }
  void SetPostData(CefRefPtr<CefPostData> data) override { post_data = data; }
  void GetHeaderMap(HeaderMap& map) override { map = headers; }
  void SetHeaderMap(const HeaderMap& map) override { headers = map; }
  CefString GetHeaderByName(const CefString& name) override {
    return Plain()->GetHeaderByName(name);
  }
  void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) override {
    const CefRefPtr<CefRequest> plain = Plain();
    plain->SetHeaderByName(name, value, overwrite);
    plain->GetHeaderMap(headers);
  }
  void Set(const CefString& new_url,
           const CefString& new_method,
           CefRefPtr<CefPostData> data,
           const HeaderMap& map) override {
    url = new_url;
    method = new_method;
    post_data = data;
    headers = map;
  }
  int GetFlags() override { return UR_FLAG_NONE; }
  void SetFlags(int) override {}
  CefString GetFirstPartyForCookies() override { return CefString(); }
  void SetFirstPartyForCookies(const CefString&) override {}
  ResourceType GetResourceType() override { return resource_type; }
  TransitionType GetTransitionType() override { return TT_EXPLICIT; }
  uint64_t GetIdentifier() override { return identifier; }

 private:
  // With CEF's rules for the names of headers.
  CefRefPtr<CefRequest> Plain() const {
    CefRefPtr<CefRequest> plain = CefRequest::Create();
    plain->SetHeaderMap(headers);
    return plain;
  }

  IMPLEMENT_REFCOUNTING(FakeRequest);
};

}  // namespace recording_cef
