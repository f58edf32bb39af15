#include "devtools/loopback_listener.h"

#include <ws2tcpip.h>

#include <algorithm>

namespace cefedition {
namespace {

constexpr size_t kMaxLine = 200;

using Clock = std::chrono::steady_clock;

bool WaitReadable(SOCKET socket, Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  if (left <= 0) {
    return false;
  }
  WSAPOLLFD poll = {socket, POLLIN, 0};
  return WSAPoll(&poll, 1, static_cast<int>(std::min<int64_t>(left, 60'000))) > 0;
}

}  // namespace

LoopbackListener::LoopbackListener() {
  // Not inheritable: the browser must not keep this process's port open.
  SOCKET listener = WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                               WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  if (listener == INVALID_SOCKET) {
    return;
  }
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  int size = sizeof(address);
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener, generic, size) != 0 || listen(listener, 4) != 0 ||
      getsockname(listener, generic, &size) != 0) {
    closesocket(listener);
    return;
  }
  socket_ = listener;
  port_ = ntohs(address.sin_port);
}

LoopbackListener::~LoopbackListener() {
  if (IsOpen()) {
    closesocket(socket_);
  }
}

std::optional<ByteStream> LoopbackListener::Accept(std::chrono::milliseconds timeout,
                                                   std::string& line) {
  const auto deadline = Clock::now() + timeout;
  line.clear();
  if (!WaitReadable(socket_, deadline)) {
    return std::nullopt;
  }
  SOCKET accepted = accept(socket_, nullptr, nullptr);
  if (accepted == INVALID_SOCKET) {
    return std::nullopt;
  }
  SetHandleInformation(reinterpret_cast<HANDLE>(accepted), HANDLE_FLAG_INHERIT, 0);
  const int on = 1;
  setsockopt(accepted, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof(on));
  ByteStream stream(accepted);
  // Byte by byte, so that nothing behind the line is taken away.
  char byte = 0;
  while (line.size() < kMaxLine && WaitReadable(accepted, deadline) && stream.Read(&byte, 1) == 1) {
    if (byte == '\n') {
      return stream;
    }
    line += byte;
  }
  return std::nullopt;
}

}  // namespace cefedition
