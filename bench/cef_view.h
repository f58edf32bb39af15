// CEF without the server: its engine, and browsers in windows.
#pragma once

#include <optional>
#include <string>

#include "include/cef_app.h"
#include "include/cef_client.h"
#include "waiting.h"

namespace kzbench {

// CEF's engine in this process, set up as the server does; a process starts it once. Throws
// std::runtime_error when it does not start.
class CefEngine {
 public:
  // `cache` is the folder of its cache. With `proxy_port`, every request goes to the proxy there.
  CefEngine(const std::wstring& cache, std::optional<int> proxy_port);
  ~CefEngine();
  CefEngine(const CefEngine&) = delete;
  CefEngine& operator=(const CefEngine&) = delete;
};

// A browser of the running engine. Its client has every kind of callback that the server's asks
// for, so that the engine does the same work for both; they do nothing but tell of the browser.
class CefView {
 public:
  // Returns when `url` is loaded.
  explicit CefView(const std::wstring& url);
  // Closes the browser by destroying its window, as a host does.
  ~CefView();
  CefView(const CefView&) = delete;
  CefView& operator=(const CefView&) = delete;

  // Returns when the page has been loaded to its end.
  void Load(const std::wstring& url);

 private:
  class Client;

  std::optional<HostWindow> window_{std::in_place};
  const CefRefPtr<Client> client_;
};

}  // namespace kzbench
