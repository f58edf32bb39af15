#pragma once

#include <winsock2.h>

#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "devtools/byte_stream.h"

namespace cefedition {

/// A small HTTP server on the loopback interface for pages under test. Each answer closes its
/// connection. Pages may be added at any time; what is not known is answered with 404.
class PageServer {
 public:
  struct Page {
    std::string body;
    int status = 200;
    std::string content_type = "text/html";
    /// Further header lines, each ended by "\r\n".
    std::string headers;
    /// The answer waits until `Release` is called.
    bool held = false;
    /// Closes the connection after this many bytes of the body, which promised to be longer.
    size_t cut_at = std::string::npos;
    /// Sends the body from here on only when `Release` is called.
    size_t held_at = std::string::npos;
  };

  PageServer();
  ~PageServer();

  void Add(const std::string& path, const std::string& body);
  void AddPage(const std::string& path, Page page);
  /// The answer depends on the request, of which `answer` gets the whole text.
  void AddAnswer(const std::string& path, std::function<Page(const std::string& request)> answer);
  void Release();
  std::string Url(const std::string& path) const;
  int port() const { return port_; }
  /// The paths asked for so far, in order.
  std::vector<std::string> Requests() const;
  /// The whole of the last request for a path with its body, empty if there was none.
  std::string RequestText(const std::string& path) const;
  bool WaitForRequest(const std::string& path);

 private:
  void Run();
  void Serve(SOCKET socket);
  void Answer(ByteStream& connection);
  static size_t ContentLength(const std::string& request);

  WSADATA winsock_;
  SOCKET listener_ = INVALID_SOCKET;
  int port_ = 0;
  mutable std::mutex lock_;
  std::condition_variable changed_;
  std::map<std::string, Page> pages_;
  std::map<std::string, std::function<Page(const std::string& request)>> answers_;
  std::vector<std::string> requests_;
  std::map<std::string, std::string> texts_;
  std::set<std::shared_ptr<ByteStream>> open_;
  bool released_ = false;
  bool stopping_ = false;
  std::vector<std::thread> connections_;
  std::thread thread_;
};

}  // namespace cefedition
