// include/cef_ssl_info.h over the C API.

#include "include/cef_ssl_info.h"

#include "binding.h"

namespace cefbinding {
namespace {

class SSLInfoObject final : public LibraryObject<CefSSLInfo> {
 public:
  explicit SSLInfoObject(Struct* object) : LibraryObject(object) {}

  cef_cert_status_t GetCertStatus() override { return Call(&Struct::get_cert_status); }
  CefRefPtr<CefX509Certificate> GetX509Certificate() override {
    return Call(&Struct::get_x509certificate);
  }
};

}  // namespace

template <>
CefRefPtr<CefSSLInfo> Counterpart<CefSSLInfo>::LibraryClass::Wrap(Struct* object) {
  return new SSLInfoObject(object);
}

}  // namespace cefbinding
