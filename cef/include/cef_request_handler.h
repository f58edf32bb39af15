// include/cef_request_handler.h of CEF 123, as far as it is used here: callbacks
// about navigation, credentials and certificates.
#pragma once

#include <vector>

#include "include/cef_auth_callback.h"
#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_callback.h"
#include "include/cef_frame.h"
#include "include/cef_request.h"
#include "include/cef_resource_request_handler.h"
#include "include/cef_ssl_info.h"
#include "include/cef_x509_certificate.h"

// Receives the chosen client certificate, null for none.
class CefSelectClientCertificateCallback : public virtual CefBaseRefCounted {
 public:
  virtual void Select(CefRefPtr<CefX509Certificate> cert) = 0;
};

// Navigation, credentials, certificates and the renderer's fate. UI thread unless said otherwise;
// GetResourceRequestHandler and GetAuthCredentials come on the IO thread.
class CefRequestHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_termination_status_t TerminationStatus;
  typedef cef_window_open_disposition_t WindowOpenDisposition;
  typedef std::vector<CefRefPtr<CefX509Certificate>> X509CertificateList;

  virtual bool OnBeforeBrowse(CefRefPtr<CefBrowser> /*browser*/,
                              CefRefPtr<CefFrame> /*frame*/,
                              CefRefPtr<CefRequest> /*request*/,
                              bool /*user_gesture*/,
                              bool /*is_redirect*/) {
    return false;
  }
  virtual bool OnOpenURLFromTab(CefRefPtr<CefBrowser> /*browser*/,
                                CefRefPtr<CefFrame> /*frame*/,
                                const CefString& /*target_url*/,
                                WindowOpenDisposition /*target_disposition*/,
                                bool /*user_gesture*/) {
    return false;
  }
  virtual CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(
      CefRefPtr<CefBrowser> /*browser*/,
      CefRefPtr<CefFrame> /*frame*/,
      CefRefPtr<CefRequest> /*request*/,
      bool /*is_navigation*/,
      bool /*is_download*/,
      const CefString& /*request_initiator*/,
      bool& /*disable_default_handling*/) {
    return nullptr;
  }
  virtual bool GetAuthCredentials(CefRefPtr<CefBrowser> /*browser*/,
                                  const CefString& /*origin_url*/,
                                  bool /*isProxy*/,
                                  const CefString& /*host*/,
                                  int /*port*/,
                                  const CefString& /*realm*/,
                                  const CefString& /*scheme*/,
                                  CefRefPtr<CefAuthCallback> /*callback*/) {
    return false;
  }
  virtual bool OnCertificateError(CefRefPtr<CefBrowser> /*browser*/,
                                  cef_errorcode_t /*cert_error*/,
                                  const CefString& /*request_url*/,
                                  CefRefPtr<CefSSLInfo> /*ssl_info*/,
                                  CefRefPtr<CefCallback> /*callback*/) {
    return false;
  }
  virtual bool OnSelectClientCertificate(
      CefRefPtr<CefBrowser> /*browser*/,
      bool /*isProxy*/,
      const CefString& /*host*/,
      int /*port*/,
      const X509CertificateList& /*certificates*/,
      CefRefPtr<CefSelectClientCertificateCallback> /*callback*/) {
    return false;
  }
  virtual void OnRenderViewReady(CefRefPtr<CefBrowser> /*browser*/) {}
  virtual void OnRenderProcessTerminated(CefRefPtr<CefBrowser> /*browser*/,
                                         TerminationStatus /*status*/) {}
  virtual void OnDocumentAvailableInMainFrame(CefRefPtr<CefBrowser> /*browser*/) {}
};
