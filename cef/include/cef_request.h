// include/cef_request.h of CEF 123, as far as it is used here: a request and its body.
#pragma once

#include <map>
#include <vector>

#include "include/cef_base.h"

class CefPostData;
class CefPostDataElement;

// A request. Any thread; read-only where a callback says so.
class CefRequest : public virtual CefBaseRefCounted {
 public:
  typedef std::multimap<CefString, CefString> HeaderMap;
  typedef cef_referrer_policy_t ReferrerPolicy;
  typedef cef_resource_type_t ResourceType;
  typedef cef_transition_type_t TransitionType;

  static CefRefPtr<CefRequest> Create();
  virtual bool IsReadOnly() = 0;
  virtual CefString GetURL() = 0;
  virtual void SetURL(const CefString& url) = 0;
  virtual CefString GetMethod() = 0;
  virtual void SetMethod(const CefString& method) = 0;
  virtual void SetReferrer(const CefString& referrer_url, ReferrerPolicy policy) = 0;
  virtual CefString GetReferrerURL() = 0;
  virtual ReferrerPolicy GetReferrerPolicy() = 0;
  virtual CefRefPtr<CefPostData> GetPostData() = 0;
  virtual void SetPostData(CefRefPtr<CefPostData> postData) = 0;
  virtual void GetHeaderMap(HeaderMap& headerMap) = 0;
  virtual void SetHeaderMap(const HeaderMap& headerMap) = 0;
  virtual CefString GetHeaderByName(const CefString& name) = 0;
  virtual void SetHeaderByName(const CefString& name, const CefString& value, bool overwrite) = 0;
  virtual void Set(const CefString& url,
                   const CefString& method,
                   CefRefPtr<CefPostData> postData,
                   const HeaderMap& headerMap) = 0;
  virtual int GetFlags() = 0;
  virtual void SetFlags(int flags) = 0;
  virtual CefString GetFirstPartyForCookies() = 0;
  virtual void SetFirstPartyForCookies(const CefString& url) = 0;
  virtual ResourceType GetResourceType() = 0;
  virtual TransitionType GetTransitionType() = 0;
  virtual uint64_t GetIdentifier() = 0;
};

// The body of a request as a list of elements.
class CefPostData : public virtual CefBaseRefCounted {
 public:
  typedef std::vector<CefRefPtr<CefPostDataElement>> ElementVector;

  static CefRefPtr<CefPostData> Create();
  virtual bool IsReadOnly() = 0;
  virtual bool HasExcludedElements() = 0;
  virtual size_t GetElementCount() = 0;
  virtual void GetElements(ElementVector& elements) = 0;
  virtual bool RemoveElement(CefRefPtr<CefPostDataElement> element) = 0;
  virtual bool AddElement(CefRefPtr<CefPostDataElement> element) = 0;
  virtual void RemoveElements() = 0;
};

// One element of a body: empty, bytes, or the path of a file.
class CefPostDataElement : public virtual CefBaseRefCounted {
 public:
  typedef cef_postdataelement_type_t Type;

  static CefRefPtr<CefPostDataElement> Create();
  virtual bool IsReadOnly() = 0;
  virtual void SetToEmpty() = 0;
  virtual void SetToFile(const CefString& fileName) = 0;
  virtual void SetToBytes(size_t size, const void* bytes) = 0;
  virtual Type GetType() = 0;
  virtual CefString GetFile() = 0;
  virtual size_t GetBytesCount() = 0;
  virtual size_t GetBytes(size_t size, void* bytes) = 0;
};
