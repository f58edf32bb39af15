// What the chooser shows of certificates.
#pragma once

#include <vector>

#include "include/cef_request_handler.h"
#include "include/cef_x509_certificate.h"

namespace kzcef {

// One list a column, one entry a certificate, in the order of the certificates.
struct CertificateTexts {
  std::vector<CefString> subjects;
  std::vector<CefString> issuers;
  std::vector<CefString> serial_numbers;
  std::vector<CefString> expiry_dates;
};

// What a certificate lacks (and everything, where the certificate itself is null) is an empty text,
// a date that cannot be told "Invalid". Dates are local and written as the C runtime's locale has
// them.
CertificateTexts TextsOf(const CefRequestHandler::X509CertificateList& certificates);

}  // namespace kzcef
