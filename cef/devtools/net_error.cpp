#include "devtools/net_error.h"

#include <string_view>

namespace cefedition {
namespace {

struct NamedError {
  std::string_view name;
  cef_errorcode_t code;
};

constexpr NamedError kNetErrors[] = {
#define NET_ERROR(label, value) {"ERR_" #label, ERR_##label},
#include "include/base/internal/cef_net_error_list.h"
#undef NET_ERROR
};

constexpr NamedError kReasons[] = {
    {"Failed", ERR_FAILED},
    {"Aborted", ERR_ABORTED},
    {"TimedOut", ERR_TIMED_OUT},
    {"AccessDenied", ERR_ACCESS_DENIED},
    {"ConnectionClosed", ERR_CONNECTION_CLOSED},
    {"ConnectionReset", ERR_CONNECTION_RESET},
    {"ConnectionRefused", ERR_CONNECTION_REFUSED},
    {"ConnectionAborted", ERR_CONNECTION_ABORTED},
    {"ConnectionFailed", ERR_CONNECTION_FAILED},
    {"NameNotResolved", ERR_NAME_NOT_RESOLVED},
    {"InternetDisconnected", ERR_INTERNET_DISCONNECTED},
    {"AddressUnreachable", ERR_ADDRESS_UNREACHABLE},
    {"BlockedByClient", ERR_BLOCKED_BY_CLIENT},
    {"BlockedByResponse", ERR_BLOCKED_BY_RESPONSE},
};

}  // namespace

cef_errorcode_t NetErrorFromName(const std::string& name) {
  std::string_view bare = name;
  constexpr std::string_view kPrefix = "net::";
  if (bare.starts_with(kPrefix)) {
    bare.remove_prefix(kPrefix.size());
  }
  for (const NamedError& error : kNetErrors) {
    if (error.name == bare) {
      return error.code;
    }
  }
  return ERR_FAILED;
}

std::string NetErrorName(cef_errorcode_t code) {
  for (const NamedError& error : kNetErrors) {
    if (error.code == code) {
      return std::string(error.name);
    }
  }
  return {};
}

cef_errorcode_t NetErrorFromReason(const std::string& reason) {
  for (const NamedError& error : kReasons) {
    if (error.name == reason) {
      return error.code;
    }
  }
  return ERR_FAILED;
}

cef_cert_status_t CertStatusOf(cef_errorcode_t error) {
  switch (error) {
    case ERR_CERT_COMMON_NAME_INVALID:
      return CERT_STATUS_COMMON_NAME_INVALID;
    case ERR_CERT_DATE_INVALID:
      return CERT_STATUS_DATE_INVALID;
    case ERR_CERT_AUTHORITY_INVALID:
      return CERT_STATUS_AUTHORITY_INVALID;
    case ERR_CERT_NO_REVOCATION_MECHANISM:
      return CERT_STATUS_NO_REVOCATION_MECHANISM;
    case ERR_CERT_UNABLE_TO_CHECK_REVOCATION:
      return CERT_STATUS_UNABLE_TO_CHECK_REVOCATION;
    case ERR_CERT_REVOKED:
      return CERT_STATUS_REVOKED;
    case ERR_CERT_WEAK_SIGNATURE_ALGORITHM:
      return CERT_STATUS_WEAK_SIGNATURE_ALGORITHM;
    case ERR_CERT_NON_UNIQUE_NAME:
      return CERT_STATUS_NON_UNIQUE_NAME;
    case ERR_CERT_WEAK_KEY:
      return CERT_STATUS_WEAK_KEY;
    case ERR_CERT_NAME_CONSTRAINT_VIOLATION:
      return CERT_STATUS_NAME_CONSTRAINT_VIOLATION;
    case ERR_CERT_VALIDITY_TOO_LONG:
      return CERT_STATUS_VALIDITY_TOO_LONG;
    default:
      return CERT_STATUS_INVALID;
  }
}

}  // namespace cefedition
