// include/cef_x509_certificate.h over the C API.

#include "include/cef_x509_certificate.h"

#include "binding.h"

namespace cefbinding {
namespace {

class X509CertPrincipalObject final : public LibraryObject<CefX509CertPrincipal> {
 public:
  explicit X509CertPrincipalObject(Struct* object) : LibraryObject(object) {}

  CefString GetDisplayName() override { return Call(&Struct::get_display_name); }
  CefString GetCommonName() override { return Call(&Struct::get_common_name); }
  CefString GetLocalityName() override { return Call(&Struct::get_locality_name); }
  CefString GetStateOrProvinceName() override { return Call(&Struct::get_state_or_province_name); }
  CefString GetCountryName() override { return Call(&Struct::get_country_name); }
  void GetOrganizationNames(std::vector<CefString>& names) override {
    Call(&Struct::get_organization_names, &names);
  }
  void GetOrganizationUnitNames(std::vector<CefString>& names) override {
    Call(&Struct::get_organization_unit_names, &names);
  }
};

class X509CertificateObject final : public LibraryObject<CefX509Certificate> {
 public:
  explicit X509CertificateObject(Struct* object) : LibraryObject(object) {}

  CefRefPtr<CefX509CertPrincipal> GetSubject() override { return Call(&Struct::get_subject); }
  CefRefPtr<CefX509CertPrincipal> GetIssuer() override { return Call(&Struct::get_issuer); }
  CefRefPtr<CefBinaryValue> GetSerialNumber() override { return Call(&Struct::get_serial_number); }
  CefBaseTime GetValidStart() override { return Call(&Struct::get_valid_start); }
  CefBaseTime GetValidExpiry() override { return Call(&Struct::get_valid_expiry); }
  CefRefPtr<CefBinaryValue> GetDEREncoded() override { return Call(&Struct::get_derencoded); }
  CefRefPtr<CefBinaryValue> GetPEMEncoded() override { return Call(&Struct::get_pemencoded); }
  size_t GetIssuerChainSize() override { return Call(&Struct::get_issuer_chain_size); }
  void GetDEREncodedIssuerChain(IssuerChainBinaryList& chain) override {
    chain = IssuerChain(&Struct::get_derencoded_issuer_chain);
  }
  void GetPEMEncodedIssuerChain(IssuerChainBinaryList& chain) override {
    chain = IssuerChain(&Struct::get_pemencoded_issuer_chain);
  }

 private:
  template <class Getter>
  IssuerChainBinaryList IssuerChain(Getter getter) {
    std::vector<capi::cef_binary_value_t*> objects(GetIssuerChainSize());
    size_t count = objects.size();
    Call(getter, &count, objects.data());
    objects.resize(std::min(count, objects.size()));
    return RewrapAll<CefBinaryValue>(objects);
  }
};

}  // namespace

template <>
CefRefPtr<CefX509CertPrincipal> Counterpart<CefX509CertPrincipal>::LibraryClass::Wrap(
    Struct* object) {
  return new X509CertPrincipalObject(object);
}

template <>
CefRefPtr<CefX509Certificate> Counterpart<CefX509Certificate>::LibraryClass::Wrap(Struct* object) {
  return new X509CertificateObject(object);
}

}  // namespace cefbinding
