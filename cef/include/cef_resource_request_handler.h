// include/cef_resource_request_handler.h of CEF 123, as far as it is used
// here: callbacks about the requests of a page.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_callback.h"
#include "include/cef_frame.h"
#include "include/cef_request.h"
#include "include/cef_resource_handler.h"
#include "include/cef_response.h"
#include "include/cef_response_filter.h"

class CefCookieAccessFilter;

// The stages of one resource request, on the IO thread.
class CefResourceRequestHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_return_value_t ReturnValue;
  typedef cef_urlrequest_status_t URLRequestStatus;

  virtual CefRefPtr<CefCookieAccessFilter> GetCookieAccessFilter(
      CefRefPtr<CefBrowser> /*browser*/,
      CefRefPtr<CefFrame> /*frame*/,
      CefRefPtr<CefRequest> /*request*/) {
    return nullptr;
  }
  virtual ReturnValue OnBeforeResourceLoad(CefRefPtr<CefBrowser> /*browser*/,
                                           CefRefPtr<CefFrame> /*frame*/,
                                           CefRefPtr<CefRequest> /*request*/,
                                           CefRefPtr<CefCallback> /*callback*/) {
    return RV_CONTINUE;
  }
  virtual CefRefPtr<CefResourceHandler> GetResourceHandler(CefRefPtr<CefBrowser> /*browser*/,
                                                           CefRefPtr<CefFrame> /*frame*/,
                                                           CefRefPtr<CefRequest> /*request*/) {
    return nullptr;
  }
  virtual void OnResourceRedirect(CefRefPtr<CefBrowser> /*browser*/,
                                  CefRefPtr<CefFrame> /*frame*/,
                                  CefRefPtr<CefRequest> /*request*/,
                                  CefRefPtr<CefResponse> /*response*/,
                                  CefString& /*new_url*/) {}
  virtual bool OnResourceResponse(CefRefPtr<CefBrowser> /*browser*/,
                                  CefRefPtr<CefFrame> /*frame*/,
                                  CefRefPtr<CefRequest> /*request*/,
                                  CefRefPtr<CefResponse> /*response*/) {
    return false;
  }
  virtual CefRefPtr<CefResponseFilter> GetResourceResponseFilter(
      CefRefPtr<CefBrowser> /*browser*/,
      CefRefPtr<CefFrame> /*frame*/,
      CefRefPtr<CefRequest> /*request*/,
      CefRefPtr<CefResponse> /*response*/) {
    return nullptr;
  }
  virtual void OnResourceLoadComplete(CefRefPtr<CefBrowser> /*browser*/,
                                      CefRefPtr<CefFrame> /*frame*/,
                                      CefRefPtr<CefRequest> /*request*/,
                                      CefRefPtr<CefResponse> /*response*/,
                                      URLRequestStatus /*status*/,
                                      int64_t /*received_content_length*/) {}
  virtual void OnProtocolExecution(CefRefPtr<CefBrowser> /*browser*/,
                                   CefRefPtr<CefFrame> /*frame*/,
                                   CefRefPtr<CefRequest> /*request*/,
                                   bool& /*allow_os_execution*/) {}
};

// Decides about single cookies of a request, on the IO thread.
class CefCookieAccessFilter : public virtual CefBaseRefCounted {
 public:
  virtual bool CanSendCookie(CefRefPtr<CefBrowser> /*browser*/,
                             CefRefPtr<CefFrame> /*frame*/,
                             CefRefPtr<CefRequest> /*request*/,
                             const CefCookie& /*cookie*/) {
    return true;
  }
  virtual bool CanSaveCookie(CefRefPtr<CefBrowser> /*browser*/,
                             CefRefPtr<CefFrame> /*frame*/,
                             CefRefPtr<CefRequest> /*request*/,
                             CefRefPtr<CefResponse> /*response*/,
                             const CefCookie& /*cookie*/) {
    return true;
  }
};
