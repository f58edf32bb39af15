// Certificates that Windows takes apart, as objects of CEF's classes.
#include "certificates/real_certificates.h"

#include <windows.h>

#include <wincrypt.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "recording_cef/fake_certificate.h"

namespace certificates {
namespace {

using recording_cef::FakeCertificate;
using recording_cef::FakePrincipal;
using Bytes = std::vector<BYTE>;

struct CertificateCloser {
  void operator()(const CERT_CONTEXT* context) const { CertFreeCertificateContext(context); }
};
using UniqueCertificate = std::unique_ptr<const CERT_CONTEXT, CertificateCloser>;

struct LocalFreer {
  void operator()(void* memory) const { LocalFree(memory); }
};

Bytes Der(const char* base64) {
  Bytes bytes(std::strlen(base64));
  auto size = static_cast<DWORD>(bytes.size());
  if (!CryptStringToBinaryA(base64, 0, CRYPT_STRING_BASE64, bytes.data(), &size, nullptr,
                            nullptr)) {
    throw std::invalid_argument("not Base64");
  }
  bytes.resize(size);
  return bytes;
}

CefRefPtr<CefBinaryValue> BinaryOf(const Bytes& bytes) {
  return CefBinaryValue::Create(bytes.data(), bytes.size());
}

CefRefPtr<CefBinaryValue> PemOf(const Bytes& der) {
  const auto size = static_cast<DWORD>(der.size());
  DWORD length = 0;
  CryptBinaryToStringA(der.data(), size, CRYPT_STRING_BASE64HEADER, nullptr, &length);
  std::string pem(length, '\0');
  CryptBinaryToStringA(der.data(), size, CRYPT_STRING_BASE64HEADER, pem.data(), &length);
  return CefBinaryValue::Create(pem.data(), length);
}

// Microseconds since 1601.
std::int64_t TimeOf(const FILETIME& time) {
  constexpr std::int64_t kTicksPerMicrosecond = 10;
  return ((static_cast<std::int64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime) /
         kTicksPerMicrosecond;
}

void AddAttribute(FakePrincipal& principal, const CERT_RDN_ATTR& attribute) {
  std::wstring_view text(reinterpret_cast<const wchar_t*>(attribute.Value.pbData),
                         attribute.Value.cbData / sizeof(wchar_t));
  // Some systems count the end of the text as part of it.
  while (text.ends_with(L'\0')) {
    text.remove_suffix(1);
  }
  const CefString value{std::wstring(text)};
  const std::string_view type = attribute.pszObjId;
  if (type == szOID_COMMON_NAME) {
    principal.common_name = value;
  } else if (type == szOID_LOCALITY_NAME) {
    principal.locality = value;
  } else if (type == szOID_STATE_OR_PROVINCE_NAME) {
    principal.state = value;
  } else if (type == szOID_COUNTRY_NAME) {
    principal.country = value;
  } else if (type == szOID_ORGANIZATION_NAME) {
    principal.organizations.push_back(value);
  } else if (type == szOID_ORGANIZATIONAL_UNIT_NAME) {
    principal.units.push_back(value);
  }
}

void ReadName(FakePrincipal& principal, const CERT_NAME_BLOB& name) {
  CERT_NAME_INFO* decoded = nullptr;
  DWORD size = 0;
  if (!CryptDecodeObjectEx(X509_ASN_ENCODING, X509_UNICODE_NAME, name.pbData, name.cbData,
                           CRYPT_DECODE_ALLOC_FLAG, nullptr, &decoded, &size)) {
    throw std::invalid_argument("not a name");
  }
  const std::unique_ptr<CERT_NAME_INFO, LocalFreer> info(decoded);
  for (DWORD i = 0; i < info->cRDN; ++i) {
    for (DWORD j = 0; j < info->rgRDN[i].cRDNAttr; ++j) {
      AddAttribute(principal, info->rgRDN[i].rgRDNAttr[j]);
    }
  }
  // CEF's choice: the first of these that there is.
  if (!principal.common_name.empty()) {
    principal.display_name = principal.common_name;
  } else if (!principal.organizations.empty()) {
    principal.display_name = principal.organizations.front();
  } else if (!principal.units.empty()) {
    principal.display_name = principal.units.front();
  }
}

}  // namespace

CefRefPtr<CefX509Certificate> MakeCertificate(const std::vector<const char*>& chain) {
  const Bytes der = Der(chain.at(0));
  const UniqueCertificate context(
      CertCreateCertificateContext(X509_ASN_ENCODING, der.data(), static_cast<DWORD>(der.size())));
  if (!context) {
    throw std::invalid_argument("not a certificate");
  }
  const CERT_INFO& info = *context->pCertInfo;
  CefRefPtr<FakeCertificate> certificate = new FakeCertificate;
  ReadName(*certificate->subject, info.Subject);
  ReadName(*certificate->issuer, info.Issuer);
  // Windows keeps numbers with the lowest byte first.
  Bytes number(info.SerialNumber.pbData, info.SerialNumber.pbData + info.SerialNumber.cbData);
  std::reverse(number.begin(), number.end());
  certificate->serial_number = BinaryOf(number);
  certificate->valid_start = TimeOf(info.NotBefore);
  certificate->valid_expiry = TimeOf(info.NotAfter);
  certificate->der = BinaryOf(der);
  certificate->pem = PemOf(der);
  for (size_t i = 1; i < chain.size(); ++i) {
    const Bytes issuer = Der(chain[i]);
    certificate->der_chain.push_back(BinaryOf(issuer));
    certificate->pem_chain.push_back(PemOf(issuer));
  }
  return certificate;
}

}  // namespace certificates
