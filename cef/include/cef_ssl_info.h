// include/cef_ssl_info.h of CEF 123, as far as it is used here:
// what is wrong with a server's certificate.
#pragma once

#include "include/cef_base.h"
#include "include/cef_values.h"
#include "include/cef_x509_certificate.h"

// The certificate of a connection that failed.
class CefSSLInfo : public virtual CefBaseRefCounted {
 public:
  virtual cef_cert_status_t GetCertStatus() = 0;
  virtual CefRefPtr<CefX509Certificate> GetX509Certificate() = 0;
};

// Returns true when any bit of |status| stands for an error.
bool CefIsCertStatusError(cef_cert_status_t status);
