#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "devtools/byte_stream.h"

namespace cefedition {

/// Waits for connections from this machine on a port that the system chooses. The caller keeps
/// Winsock started while one exists.
class LoopbackListener {
 public:
  LoopbackListener();
  ~LoopbackListener();
  LoopbackListener(const LoopbackListener&) = delete;
  LoopbackListener& operator=(const LoopbackListener&) = delete;

  /// False when the listener could not be opened.
  bool IsOpen() const { return socket_ != INVALID_SOCKET; }
  uint16_t port() const { return port_; }

  /// The next connection, with the first line that its other side sent (without its end). Empty
  /// after `timeout`, and for a connection that sends no line of at most 200 characters in that
  /// time.
  std::optional<ByteStream> Accept(std::chrono::milliseconds timeout, std::string& line);

 private:
  SOCKET socket_ = INVALID_SOCKET;
  uint16_t port_ = 0;
};

}  // namespace cefedition
