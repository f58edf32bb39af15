#include "base/x509_certificate.h"

#include <windows.h>

#include <wincrypt.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base64.h"

namespace cefedition {
namespace {

constexpr size_t kPemLine = 64;
constexpr int64_t kTicksPerMicrosecond = 10;

struct CertificateCloser {
  void operator()(const CERT_CONTEXT* context) const { CertFreeCertificateContext(context); }
};
using UniqueCertificate = std::unique_ptr<const CERT_CONTEXT, CertificateCloser>;

struct LocalFreer {
  void operator()(void* memory) const { LocalFree(memory); }
};

CefBaseTime ToBaseTime(const FILETIME& time) {
  const uint64_t ticks = (static_cast<uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  CefBaseTime result;
  result.val = static_cast<int64_t>(ticks) / kTicksPerMicrosecond;
  return result;
}

CefRefPtr<CefBinaryValue> ToBinary(const void* data, size_t size) {
  return CefBinaryValue::Create(data, size);
}

CefRefPtr<CefBinaryValue> DerOf(const DerCertificate& certificate) {
  return ToBinary(certificate.data(), certificate.size());
}

CefRefPtr<CefBinaryValue> PemOf(const DerCertificate& certificate) {
  const std::string text = Base64Encode(certificate);
  std::string pem = "-----BEGIN CERTIFICATE-----\n";
  for (size_t start = 0; start < text.size(); start += kPemLine) {
    pem += text.substr(start, kPemLine) + "\n";
  }
  pem += "-----END CERTIFICATE-----\n";
  return ToBinary(pem.data(), pem.size());
}

/// A subject's or an issuer's name. Of names that are there once the first counts.
class Principal : public CefX509CertPrincipal {
 public:
  explicit Principal(const CERT_NAME_BLOB& name) {
    CERT_NAME_INFO* decoded = nullptr;
    DWORD size = 0;
    if (!CryptDecodeObjectEx(X509_ASN_ENCODING, X509_UNICODE_NAME, name.pbData, name.cbData,
                             CRYPT_DECODE_ALLOC_FLAG, nullptr, &decoded, &size)) {
      return;
    }
    const std::unique_ptr<CERT_NAME_INFO, LocalFreer> info(decoded);
    for (DWORD i = 0; i < info->cRDN; ++i) {
      for (DWORD j = 0; j < info->rgRDN[i].cRDNAttr; ++j) {
        Add(info->rgRDN[i].rgRDNAttr[j]);
      }
    }
  }

  CefString GetDisplayName() override {
    if (!common_name_.empty()) {
      return common_name_;
    }
    if (!organizations_.empty()) {
      return organizations_.front();
    }
    return units_.empty() ? CefString() : units_.front();
  }
  CefString GetCommonName() override { return common_name_; }
  CefString GetLocalityName() override { return locality_; }
  CefString GetStateOrProvinceName() override { return state_; }
  CefString GetCountryName() override { return country_; }
  void GetOrganizationNames(std::vector<CefString>& names) override { names = organizations_; }
  void GetOrganizationUnitNames(std::vector<CefString>& names) override { names = units_; }

 private:
  void Add(const CERT_RDN_ATTR& attribute) {
    std::wstring_view text(reinterpret_cast<const wchar_t*>(attribute.Value.pbData),
                           attribute.Value.cbData / sizeof(wchar_t));
    // Some systems count the end of the text as part of it.
    while (text.ends_with(L'\0')) {
      text.remove_suffix(1);
    }
    const CefString value{std::wstring(text)};
    const std::string_view type = attribute.pszObjId ? attribute.pszObjId : "";
    const std::pair<std::string_view, CefString*> single[] = {
        {szOID_COMMON_NAME, &common_name_},
        {szOID_LOCALITY_NAME, &locality_},
        {szOID_STATE_OR_PROVINCE_NAME, &state_},
        {szOID_COUNTRY_NAME, &country_},
    };
    for (const auto& [oid, member] : single) {
      if (type == oid && member->empty()) {
        *member = value;
      }
    }
    if (type == szOID_ORGANIZATION_NAME) {
      organizations_.push_back(value);
    } else if (type == szOID_ORGANIZATIONAL_UNIT_NAME) {
      units_.push_back(value);
    }
  }

  CefString common_name_;
  CefString locality_;
  CefString state_;
  CefString country_;
  std::vector<CefString> organizations_;
  std::vector<CefString> units_;

  IMPLEMENT_REFCOUNTING(Principal);
};

class Certificate : public CefX509Certificate {
 public:
  Certificate(UniqueCertificate context, std::vector<DerCertificate> chain)
      : context_(std::move(context)), chain_(std::move(chain)) {}

  CefRefPtr<CefX509CertPrincipal> GetSubject() override { return new Principal(info().Subject); }
  CefRefPtr<CefX509CertPrincipal> GetIssuer() override { return new Principal(info().Issuer); }
  CefRefPtr<CefBinaryValue> GetSerialNumber() override {
    // Windows keeps numbers with the lowest byte first.
    std::vector<uint8_t> bytes(info().SerialNumber.pbData,
                               info().SerialNumber.pbData + info().SerialNumber.cbData);
    std::reverse(bytes.begin(), bytes.end());
    return DerOf(bytes);
  }
  CefBaseTime GetValidStart() override { return ToBaseTime(info().NotBefore); }
  CefBaseTime GetValidExpiry() override { return ToBaseTime(info().NotAfter); }
  CefRefPtr<CefBinaryValue> GetDEREncoded() override { return DerOf(chain_.front()); }
  CefRefPtr<CefBinaryValue> GetPEMEncoded() override { return PemOf(chain_.front()); }
  size_t GetIssuerChainSize() override { return chain_.size() - 1; }
  void GetDEREncodedIssuerChain(IssuerChainBinaryList& chain) override { List(chain, DerOf); }
  void GetPEMEncodedIssuerChain(IssuerChainBinaryList& chain) override { List(chain, PemOf); }

 private:
  template <typename Encode>
  void List(IssuerChainBinaryList& list, Encode encode) const {
    list.clear();
    std::transform(chain_.begin() + 1, chain_.end(), std::back_inserter(list), encode);
  }
  const CERT_INFO& info() const { return *context_->pCertInfo; }

  const UniqueCertificate context_;
  const std::vector<DerCertificate> chain_;

  IMPLEMENT_REFCOUNTING(Certificate);
};

}  // namespace

CefRefPtr<CefX509Certificate> MakeX509Certificate(std::vector<DerCertificate> chain) {
  if (chain.empty()) {
    return nullptr;
  }
  UniqueCertificate context(CertCreateCertificateContext(X509_ASN_ENCODING, chain.front().data(),
                                                         static_cast<DWORD>(chain.front().size())));
  if (!context) {
    return nullptr;
  }
  return new Certificate(std::move(context), std::move(chain));
}

}  // namespace cefedition
