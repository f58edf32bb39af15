// include/cef_x509_certificate.h of CEF 123, as far as it is used
// here: certificates and the names in them.
#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_values.h"

// Subject or issuer of a certificate.
class CefX509CertPrincipal : public virtual CefBaseRefCounted {
 public:
  virtual CefString GetDisplayName() = 0;
  virtual CefString GetCommonName() = 0;
  virtual CefString GetLocalityName() = 0;
  virtual CefString GetStateOrProvinceName() = 0;
  virtual CefString GetCountryName() = 0;
  virtual void GetOrganizationNames(std::vector<CefString>& names) = 0;
  virtual void GetOrganizationUnitNames(std::vector<CefString>& names) = 0;
};

// An X.509 certificate with its chain.
class CefX509Certificate : public virtual CefBaseRefCounted {
 public:
  typedef std::vector<CefRefPtr<CefBinaryValue>> IssuerChainBinaryList;

  virtual CefRefPtr<CefX509CertPrincipal> GetSubject() = 0;
  virtual CefRefPtr<CefX509CertPrincipal> GetIssuer() = 0;
  virtual CefRefPtr<CefBinaryValue> GetSerialNumber() = 0;
  virtual CefBaseTime GetValidStart() = 0;
  virtual CefBaseTime GetValidExpiry() = 0;
  virtual CefRefPtr<CefBinaryValue> GetDEREncoded() = 0;
  virtual CefRefPtr<CefBinaryValue> GetPEMEncoded() = 0;
  virtual size_t GetIssuerChainSize() = 0;
  virtual void GetDEREncodedIssuerChain(IssuerChainBinaryList& chain) = 0;
  virtual void GetPEMEncodedIssuerChain(IssuerChainBinaryList& chain) = 0;
};
