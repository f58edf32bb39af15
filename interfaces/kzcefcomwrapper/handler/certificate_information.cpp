// Reads CEF's certificate into the plain values of which certificate_text.h makes a text.

#include "handler/certificate_information.h"

#include <ctime>
#include <vector>

#include "handler/certificate_text.h"
#include "include/cef_parser.h"

namespace kzcef {
namespace {

std::string NameOf(const CefRefPtr<CefX509CertPrincipal>& principal) {
  return principal ? principal->GetDisplayName().ToString() : std::string();
}

Base64 Base64Of(const CefRefPtr<CefBinaryValue>& value) {
  if (!value) {
    return std::nullopt;
  }
  std::vector<char> bytes(value->GetSize());
  bytes.resize(value->GetData(bytes.data(), bytes.size(), 0));
  return CefBase64Encode(bytes.data(), bytes.size()).ToString();
}

std::vector<Base64> Base64Of(const CefX509Certificate::IssuerChainBinaryList& chain) {
  std::vector<Base64> entries;
  entries.reserve(chain.size());
  for (const CefRefPtr<CefBinaryValue>& entry : chain) {
    entries.push_back(Base64Of(entry));
  }
  return entries;
}

CertificateTime TimeOf(const CefBaseTime& time) {
  cef_time_t parts = {};
  if (!cef_time_from_basetime(time, &parts)) {
    return NoTime::kInvalid;
  }
  time_t seconds = 0;
  if (!cef_time_to_timet(&parts, &seconds) || seconds == 0) {
    return NoTime::kUnspecified;
  }
  return CalendarTime{parts.year, parts.month,  parts.day_of_month,
                      parts.hour, parts.minute, parts.second};
}

}  // namespace

std::string CertificateInformation(const CefRefPtr<CefX509Certificate>& certificate,
                                   cef_cert_status_t status) {
  if (!certificate) {
    return {};
  }
  CefX509Certificate::IssuerChainBinaryList der_chain;
  CefX509Certificate::IssuerChainBinaryList pem_chain;
  certificate->GetDEREncodedIssuerChain(der_chain);
  certificate->GetPEMEncodedIssuerChain(pem_chain);
  CertificateValues values;
  values.status = static_cast<uint32_t>(status);
  values.subject = NameOf(certificate->GetSubject());
  values.issuer = NameOf(certificate->GetIssuer());
  values.serial_number = Base64Of(certificate->GetSerialNumber());
  values.valid_start = TimeOf(certificate->GetValidStart());
  values.valid_expiry = TimeOf(certificate->GetValidExpiry());
  values.der_chain = Base64Of(der_chain);
  values.pem_chain = Base64Of(pem_chain);
  return CertificateText(values);
}

}  // namespace kzcef
