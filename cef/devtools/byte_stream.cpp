#include "devtools/byte_stream.h"

#include <algorithm>
#include <utility>

namespace cefedition {

ByteStream::ByteStream(SOCKET socket) : socket_(socket) {}

ByteStream::~ByteStream() {
  if (IsOpen()) {
    closesocket(socket_);
  }
}

ByteStream::ByteStream(ByteStream&& other) noexcept
    : socket_(std::exchange(other.socket_, INVALID_SOCKET)) {}

ByteStream& ByteStream::operator=(ByteStream&& other) noexcept {
  std::swap(socket_, other.socket_);
  return *this;
}

size_t ByteStream::Read(char* buffer, size_t size) {
  const int limit = static_cast<int>(std::min<size_t>(size, 1 << 20));
  const int count = recv(socket_, buffer, limit, 0);
  return count > 0 ? static_cast<size_t>(count) : 0;
}

bool ByteStream::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const int limit = static_cast<int>(std::min<size_t>(bytes.size(), 1 << 20));
    const int count = send(socket_, bytes.data(), limit, 0);
    if (count <= 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}

void ByteStream::Shutdown() {
  if (IsOpen()) {
    shutdown(socket_, SD_BOTH);
  }
}

}  // namespace cefedition
