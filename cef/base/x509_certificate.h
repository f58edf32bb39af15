#pragma once

#include <cstdint>
#include <vector>

#include "include/cef_x509_certificate.h"

namespace cefedition {

/// One certificate in DER form.
using DerCertificate = std::vector<uint8_t>;

/// The certificate `chain.front()`, with those after it, its issuers from the nearest on, as its
/// issuer chain. Null when the first is missing or no certificate. Any thread.
CefRefPtr<CefX509Certificate> MakeX509Certificate(std::vector<DerCertificate> chain);

}  // namespace cefedition
