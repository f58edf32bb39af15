#pragma once

#include <winsock2.h>

#include <memory>
#include <string>

#include "devtools/byte_stream.h"

namespace cefedition {

/// The HTTPS server of tests/support/tls, with a certificate for "selfsigned.test" that nobody
/// trusts. A browser reaches it under that name with the switch that `Rule` is for. Its process
/// ends with this object.
class TlsServer {
 public:
  TlsServer();
  ~TlsServer();
  TlsServer(const TlsServer&) = delete;
  TlsServer& operator=(const TlsServer&) = delete;

  /// False when it could not be started.
  bool IsRunning() const { return control_.IsOpen(); }
  /// The value of "host-resolver-rules".
  std::string Rule() const { return "MAP selfsigned.test 127.0.0.1:" + port_; }

 private:
  WSADATA winsock_;
  std::string port_;
  ByteStream control_;
};

}  // namespace cefedition
