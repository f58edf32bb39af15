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

// True when any bit of |status| stands for an error.
bool CefIsCertStatusError(cef_cert_status_t status);
