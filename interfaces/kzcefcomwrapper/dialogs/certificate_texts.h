// What the chooser shows of certificates.
#pragma once

#include <vector>

#include "include/cef_request_handler.h"
#include "include/cef_x509_certificate.h"

namespace kzcef {

// One list per column, one entry per certificate, in the order of the certificates.
struct CertificateTexts {
  std::vector<CefString> subjects;
  std::vector<CefString> issuers;
  std::vector<CefString> serial_numbers;
  std::vector<CefString> expiry_dates;
};

// Returns the texts of `certificates`. What a certificate lacks is an empty text, and so is
// everything of a null certificate; a date that cannot be told is "Invalid". Dates are local and
// written in the manner of the C runtime's locale.
CertificateTexts TextsOf(const CefRequestHandler::X509CertificateList& certificates);

}  // namespace kzcef
