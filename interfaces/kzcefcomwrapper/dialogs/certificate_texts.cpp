// Takes from each certificate the names, the serial number and the local date of its expiry.

#include "dialogs/certificate_texts.h"

#include <array>
#include <ctime>
#include <string>

#include "dialogs/chooser_texts.h"

namespace kzcef {
namespace {

constexpr char kInvalid[] = "Invalid";

CefString NameOf(const CefRefPtr<CefX509CertPrincipal>& principal) {
  return principal ? principal->GetDisplayName() : CefString();
}

CefString SerialNumberOf(const CefRefPtr<CefBinaryValue>& serial_number) {
  if (!serial_number) {
    return {};
  }
  std::string bytes(serial_number->GetSize(), '\0');
  bytes.resize(serial_number->GetData(bytes.data(), bytes.size(), 0));
  return SerialNumberText(bytes);
}

CefString DateOf(const CefBaseTime& time) {
  cef_time_t parts = {};
  time_t seconds = 0;
  std::tm local = {};
  if (!cef_time_from_basetime(time, &parts) || !cef_time_to_timet(&parts, &seconds) ||
      _localtime64_s(&local, &seconds) != 0) {
    return kInvalid;
  }
  std::array<char, 80> text = {};
  return std::string(text.data(), std::strftime(text.data(), text.size(), "%x", &local));
}

}  // namespace

CertificateTexts TextsOf(const CefRequestHandler::X509CertificateList& certificates) {
  CertificateTexts texts;
  for (const CefRefPtr<CefX509Certificate>& certificate : certificates) {
    texts.subjects.push_back(certificate ? NameOf(certificate->GetSubject()) : CefString());
    texts.issuers.push_back(certificate ? NameOf(certificate->GetIssuer()) : CefString());
    texts.serial_numbers.push_back(certificate ? SerialNumberOf(certificate->GetSerialNumber())
                                               : CefString());
    texts.expiry_dates.push_back(certificate ? DateOf(certificate->GetValidExpiry())
                                             : CefString(kInvalid));
  }
  return texts;
}

}  // namespace kzcef
