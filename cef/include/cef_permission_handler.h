#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"

// Answers a request for camera or microphone.
class CefMediaAccessCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(uint32_t allowed_permissions) = 0;
  virtual void Cancel() = 0;
};

// Answers a permission prompt.
class CefPermissionPromptCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Continue(cef_permission_request_result_t result) = 0;
};

// Permission requests, on the UI thread.
class CefPermissionHandler : public virtual CefBaseRefCounted {
 public:
  virtual bool OnRequestMediaAccessPermission(CefRefPtr<CefBrowser> browser,
                                              CefRefPtr<CefFrame> frame,
                                              const CefString& requesting_origin,
                                              uint32_t requested_permissions,
                                              CefRefPtr<CefMediaAccessCallback> callback) {
    return false;
  }
  virtual bool OnShowPermissionPrompt(CefRefPtr<CefBrowser> browser,
                                      uint64_t prompt_id,
                                      const CefString& requesting_origin,
                                      uint32_t requested_permissions,
                                      CefRefPtr<CefPermissionPromptCallback> callback) {
    return false;
  }
  virtual void OnDismissPermissionPrompt(CefRefPtr<CefBrowser> browser,
                                         uint64_t prompt_id,
                                         cef_permission_request_result_t result) {}
};
