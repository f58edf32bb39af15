#include "include/cef_ssl_info.h"

// The bits in the middle tell something about a certificate that is good; all others are errors.
bool CefIsCertStatusError(cef_cert_status_t status) {
  constexpr unsigned kErrors = 0xFF00FFFF;
  return (static_cast<unsigned>(status) & kErrors) != 0;
}
