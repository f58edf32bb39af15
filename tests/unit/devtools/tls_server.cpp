#include "tls_server.h"

#include <windows.h>

#include <utility>

#include "devtools/loopback_listener.h"
#include "devtools/unix_host.h"

namespace cefedition {

TlsServer::TlsServer() {
  WSAStartup(MAKEWORD(2, 2), &winsock_);
  LoopbackListener listener;
  std::wstring command_line = L"python3 " TLS_SERVER_SCRIPT L" " + std::to_wstring(listener.port());
  STARTUPINFOW startup = {};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION info = {};
  if (!CreateProcessW(ToWindowsPath("/usr/bin/python3").c_str(), command_line.data(), nullptr,
                      nullptr, FALSE, 0, nullptr, nullptr, &startup, &info)) {
    return;
  }
  CloseHandle(info.hThread);
  CloseHandle(info.hProcess);
  if (auto control = listener.Accept(std::chrono::seconds(15), port_)) {
    control_ = std::move(*control);
  }
}

TlsServer::~TlsServer() {
  control_ = {};
  WSACleanup();
}

}  // namespace cefedition
