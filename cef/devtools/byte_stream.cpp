#include "devtools/byte_stream.h"

#include <algorithm>
#include <utility>

namespace cefedition {
namespace {

constexpr size_t kMaxPiece = 1 << 20;

}  // namespace

ByteStream::ByteStream(SOCKET socket)
    : socket_(socket), stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

ByteStream::~ByteStream() {
  if (IsOpen()) {
    closesocket(socket_);
  }
}

ByteStream::ByteStream(ByteStream&& other) noexcept
    : socket_(std::exchange(other.socket_, INVALID_SOCKET)), stop_(std::move(other.stop_)) {}

ByteStream& ByteStream::operator=(ByteStream&& other) noexcept {
  std::swap(socket_, other.socket_);
  std::swap(stop_, other.stop_);
  return *this;
}

size_t ByteStream::Read(char* buffer, size_t size) {
  const UniqueHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  WSAOVERLAPPED operation = {};
  operation.hEvent = done.get();
  WSABUF target = {static_cast<ULONG>(std::min<size_t>(size, kMaxPiece)), buffer};
  DWORD count = 0;
  DWORD flags = 0;
  const int result = WSARecv(socket_, &target, 1, &count, &flags, &operation, nullptr);
  return Finish(operation, result, count) ? count : 0;
}

bool ByteStream::Write(std::string_view bytes) {
  const UniqueHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  while (!bytes.empty()) {
    WSAOVERLAPPED operation = {};
    operation.hEvent = done.get();
    // The interface wants a writable buffer and does not write to it.
    WSABUF source = {static_cast<ULONG>(std::min<size_t>(bytes.size(), kMaxPiece)),
                     const_cast<char*>(bytes.data())};
    DWORD count = 0;
    const int result = WSASend(socket_, &source, 1, &count, 0, &operation, nullptr);
    if (!Finish(operation, result, count) || count == 0) {
      return false;
    }
    bytes.remove_prefix(count);
  }
  return true;
}

bool ByteStream::Finish(WSAOVERLAPPED& operation, int result, DWORD& count) {
  if (result != 0 && WSAGetLastError() != WSA_IO_PENDING) {
    return false;
  }
  const HANDLE handles[] = {stop_.get(), operation.hEvent};
  if (WaitForMultipleObjects(2, handles, FALSE, INFINITE) == WAIT_OBJECT_0) {
    // The buffer may be let go of only once the operation has ended.
    CancelIoEx(reinterpret_cast<HANDLE>(socket_), &operation);
    WaitForSingleObject(operation.hEvent, INFINITE);
    return false;
  }
  DWORD flags = 0;
  return WSAGetOverlappedResult(socket_, &operation, &count, FALSE, &flags) != FALSE;
}

void ByteStream::Shutdown() {
  if (IsOpen()) {
    SetEvent(stop_.get());
    shutdown(socket_, SD_BOTH);
  }
}

}  // namespace cefedition
