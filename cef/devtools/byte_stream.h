#pragma once

#include <winsock2.h>

#include <cstddef>
#include <string_view>

#include "devtools/win_handle.h"

namespace cefedition {

/// One end of a connection on the loopback interface. One thread may read while another writes; any
/// thread may shut it down.
class ByteStream {
 public:
  ByteStream() = default;
  /// Takes ownership of a connected socket that was made for overlapped use.
  explicit ByteStream(SOCKET socket);
  ~ByteStream();
  ByteStream(ByteStream&& other) noexcept;
  ByteStream& operator=(ByteStream&& other) noexcept;

  bool IsOpen() const { return socket_ != INVALID_SOCKET; }

  /// Waits for bytes and returns how many were read: 0 when the other side has closed, the
  /// connection broke or `Shutdown` was called.
  size_t Read(char* buffer, size_t size);

  /// Writes all of `bytes`. False when the connection is gone.
  bool Write(std::string_view bytes);

  /// Ends the connection both ways; a thread that waits in `Read` or `Write` returns.
  void Shutdown();

 private:
  /// Waits for an operation to end or for `Shutdown`. False for the latter and on failure.
  bool Finish(WSAOVERLAPPED& operation, int result, DWORD& count);

  SOCKET socket_ = INVALID_SOCKET;
  /// Set by `Shutdown`: under Wine, ending a connection wakes no thread that waits for it.
  UniqueHandle stop_;
};

}  // namespace cefedition
