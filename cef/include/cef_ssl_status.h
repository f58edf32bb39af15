#pragma once

#include "include/cef_base.h"
#include "include/cef_values.h"
#include "include/cef_x509_certificate.h"

// The state of a page's connection.
class CefSSLStatus : public virtual CefBaseRefCounted {
 public:
  virtual bool IsSecureConnection() = 0;
  virtual cef_cert_status_t GetCertStatus() = 0;
  virtual cef_ssl_version_t GetSSLVersion() = 0;
  virtual cef_ssl_content_status_t GetContentStatus() = 0;
  virtual CefRefPtr<CefX509Certificate> GetX509Certificate() = 0;
};
