// Certificates that are what a test makes of them, and count what is read of them.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "include/cef_ssl_info.h"
#include "include/cef_values.h"
#include "include/cef_x509_certificate.h"

// What they return is in public members, and calls are counted where a test may want to know
// whether there were any.

namespace recording_cef {

// Null for an empty text, which CEF has no binary value for.
inline CefRefPtr<CefBinaryValue> BinaryOf(std::string_view bytes) {
  return bytes.empty() ? nullptr : CefBinaryValue::Create(bytes.data(), bytes.size());
}

class FakePrincipal final : public CefX509CertPrincipal {
 public:
  explicit FakePrincipal(const CefString& name = CefString()) : display_name(name) {}

  // What it returns.
  CefString display_name;
  CefString common_name;
  CefString locality;
  CefString state;
  CefString country;
  std::vector<CefString> organizations;
  std::vector<CefString> units;

  // How often the display name was asked for.
  int display_name_reads = 0;

  CefString GetDisplayName() override {
    ++display_name_reads;
    return display_name;
  }
  CefString GetCommonName() override { return common_name; }
  CefString GetLocalityName() override { return locality; }
  CefString GetStateOrProvinceName() override { return state; }
  CefString GetCountryName() override { return country; }
  void GetOrganizationNames(std::vector<CefString>& names) override { names = organizations; }
  void GetOrganizationUnitNames(std::vector<CefString>& names) override { names = units; }

  IMPLEMENT_REFCOUNTING(FakePrincipal);
};

class FakeCertificate final : public CefX509Certificate {
 public:
  explicit FakeCertificate(const CefString& subject_name = CefString(),
                           const CefString& issuer_name = CefString())
      : subject(new FakePrincipal(subject_name)), issuer(new FakePrincipal(issuer_name)) {}

  // What it returns, null principals and values included.
  CefRefPtr<FakePrincipal> subject;
  CefRefPtr<FakePrincipal> issuer;
  CefRefPtr<CefBinaryValue> serial_number;
  int64_t valid_start = 0;
  int64_t valid_expiry = 0;
  CefRefPtr<CefBinaryValue> der;
  CefRefPtr<CefBinaryValue> pem;
  IssuerChainBinaryList der_chain;
  IssuerChainBinaryList pem_chain;

  // How often it was asked for these.
  int serial_number_reads = 0;
  int valid_start_reads = 0;
  int valid_expiry_reads = 0;
  int der_chain_reads = 0;
  int pem_chain_reads = 0;

  CefRefPtr<CefX509CertPrincipal> GetSubject() override { return subject; }
  CefRefPtr<CefX509CertPrincipal> GetIssuer() override { return issuer; }
  CefRefPtr<CefBinaryValue> GetSerialNumber() override {
    ++serial_number_reads;
    return serial_number;
  }
  CefBaseTime GetValidStart() override {
    ++valid_start_reads;
    return TimeOf(valid_start);
  }
  CefBaseTime GetValidExpiry() override {
    ++valid_expiry_reads;
    return TimeOf(valid_expiry);
  }
  CefRefPtr<CefBinaryValue> GetDEREncoded() override { return der; }
  CefRefPtr<CefBinaryValue> GetPEMEncoded() override { return pem; }
  size_t GetIssuerChainSize() override { return der_chain.size(); }
  void GetDEREncodedIssuerChain(IssuerChainBinaryList& chain) override {
    ++der_chain_reads;
    chain = der_chain;
  }
  void GetPEMEncodedIssuerChain(IssuerChainBinaryList& chain) override {
    ++pem_chain_reads;
    chain = pem_chain;
  }

 private:
  // Microseconds since 1601.
  static CefBaseTime TimeOf(int64_t microseconds) {
    return CefBaseTime(cef_basetime_t{microseconds});
  }

  IMPLEMENT_REFCOUNTING(FakeCertificate);
};

class FakeSslInfo final : public CefSSLInfo {
 public:
  explicit FakeSslInfo(CefRefPtr<CefX509Certificate> of = nullptr) : certificate(of) {}

  // What it returns.
  int status = 0;
  CefRefPtr<CefX509Certificate> certificate;

  cef_cert_status_t GetCertStatus() override { return static_cast<cef_cert_status_t>(status); }
  CefRefPtr<CefX509Certificate> GetX509Certificate() override { return certificate; }

  IMPLEMENT_REFCOUNTING(FakeSslInfo);
};

}  // namespace recording_cef
