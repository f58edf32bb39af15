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

}  // namespace cefedition
