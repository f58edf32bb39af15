#include "page_server.h"

#include <ws2tcpip.h>

#include <algorithm>
#include <chrono>
#include <system_error>

namespace cefedition {

PageServer::PageServer() {
  WSAStartup(MAKEWORD(2, 2), &winsock_);
  listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  int size = sizeof(address);
  if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0) {
    throw std::system_error(WSAGetLastError(), std::system_category(), "a page server's port");
  }
  listen(listener_, SOMAXCONN);
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Run(); });
}

PageServer::~PageServer() {
  {
    std::lock_guard hold(lock_);
    stopping_ = true;
    changed_.notify_all();
    // A browser opens connections ahead of need, on which nothing ever comes.
    for (const auto& connection : open_) {
      connection->Shutdown();
    }
  }
  closesocket(listener_);
  thread_.join();
  for (std::thread& connection : connections_) {
    connection.join();
  }
  WSACleanup();
}

void PageServer::Add(const std::string& path, const std::string& body) {
  Page page;
  page.body = body;
  AddPage(path, std::move(page));
}

void PageServer::AddPage(const std::string& path, Page page) {
  std::lock_guard hold(lock_);
  pages_[path] = std::move(page);
}

void PageServer::AddAnswer(const std::string& path,
                           std::function<Page(const std::string& request)> answer) {
  std::lock_guard hold(lock_);
  answers_[path] = std::move(answer);
}

void PageServer::Release() {
  std::lock_guard hold(lock_);
  released_ = true;
  changed_.notify_all();
}

std::string PageServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> PageServer::Requests() const {
  std::lock_guard hold(lock_);
  return requests_;
}

std::string PageServer::RequestText(const std::string& path) const {
  std::lock_guard hold(lock_);
  const auto found = texts_.find(path);
  return found != texts_.end() ? found->second : std::string();
}

bool PageServer::WaitForRequest(const std::string& path) {
  std::unique_lock hold(lock_);
  return changed_.wait_for(hold, std::chrono::seconds(20), [&] { return texts_.contains(path); });
}

void PageServer::Run() {
  for (;;) {
    const SOCKET socket = accept(listener_, nullptr, nullptr);
    if (socket == INVALID_SOCKET) {
      return;
    }
    connections_.emplace_back([this, socket] { Serve(socket); });
  }
}

void PageServer::Serve(SOCKET socket) {
  const auto connection = std::make_shared<ByteStream>(socket);
  {
    std::lock_guard hold(lock_);
    if (stopping_) {
      return;
    }
    open_.insert(connection);
  }
  Answer(*connection);
  std::lock_guard hold(lock_);
  open_.erase(connection);
}

size_t PageServer::ContentLength(const std::string& request) {
  const std::string name = "\r\nContent-Length: ";
  const size_t found = request.find(name);
  return found != std::string::npos ? std::stoul(request.substr(found + name.size())) : 0;
}

void PageServer::Answer(ByteStream& connection) {
  std::string request;
  char buffer[4096];
  while (request.find("\r\n\r\n") == std::string::npos) {
    const size_t count = connection.Read(buffer, sizeof(buffer));
    if (count == 0) {
      return;
    }
    request.append(buffer, count);
  }
  const size_t body_start = request.find("\r\n\r\n") + 4;
  for (const size_t end = body_start + ContentLength(request); request.size() < end;) {
    const size_t count = connection.Read(buffer, sizeof(buffer));
    if (count == 0) {
      return;
    }
    request.append(buffer, count);
  }
  const size_t start = request.find(' ') + 1;
  const std::string path = request.substr(start, request.find(' ', start) - start);
  Page page;
  page.body = "not found";
  page.status = 404;
  {
    std::unique_lock hold(lock_);
    requests_.push_back(path);
    texts_[path] = request;
    changed_.notify_all();
    if (const auto found = pages_.find(path); found != pages_.end()) {
      page = found->second;
    } else if (const auto answer = answers_.find(path); answer != answers_.end()) {
      page = answer->second(request);
    }
    if (page.held) {
      changed_.wait(hold, [this] { return released_ || stopping_; });
    }
  }
  const std::string answer =
      "HTTP/1.1 " + std::to_string(page.status) + " Any\r\nContent-Type: " + page.content_type +
      "\r\nContent-Length: " + std::to_string(page.body.size()) + "\r\nConnection: close\r\n" +
      page.headers + "\r\n" + page.body.substr(0, page.cut_at);
  if (page.held_at != std::string::npos) {
    const size_t first = answer.size() - page.body.size() + page.held_at;
    connection.Write(answer.substr(0, first));
    {
      std::unique_lock hold(lock_);
      changed_.wait(hold, [this] { return released_ || stopping_; });
    }
    connection.Write(answer.substr(first));
  } else {
    connection.Write(answer);
  }
  if (page.cut_at != std::string::npos) {
    return;
  }
  // The other side closes first, having read all of it.
  while (connection.Read(buffer, sizeof(buffer)) > 0) {
  }
}

}  // namespace cefedition
