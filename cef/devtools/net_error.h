#pragma once

#include <string>

#include "include/internal/cef_types.h"

namespace cefedition {

/// The code of a name as the browser writes it ("net::ERR_TIMED_OUT" or "ERR_TIMED_OUT");
/// ERR_FAILED for a name that is not known.
cef_errorcode_t NetErrorFromName(const std::string& name);

/// The name of a code, "ERR_TIMED_OUT"; empty for one that is not known.
std::string NetErrorName(cef_errorcode_t code);

/// The code behind the protocol's `Network.ErrorReason`, which tells fewer errors apart.
cef_errorcode_t NetErrorFromReason(const std::string& reason);

/// What `CefSSLInfo` says of a certificate that failed with this error.
cef_cert_status_t CertStatusOf(cef_errorcode_t error);

}  // namespace cefedition
