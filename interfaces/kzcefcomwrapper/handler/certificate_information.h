// What there is to say about a certificate.
#pragma once

#include <string>

#include "include/cef_x509_certificate.h"

namespace kzcef {

// Returns the text of certificate_text.h about `certificate`, in UTF-8; empty without a
// certificate. Any thread.
std::string CertificateInformation(const CefRefPtr<CefX509Certificate>& certificate,
                                   cef_cert_status_t status);

}  // namespace kzcef
