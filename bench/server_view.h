// The server as a host uses it: its engine, and browsers in windows.
#pragma once

#include <windows.h>

#include <wrl/client.h>

#include <memory>
#include <optional>
#include <string>

#include "KZCEFComWrapper.h"
#include "server.h"
#include "waiting.h"

namespace kzbench {

// The server's engine in this process; a process starts it once. Throws
// std::runtime_error when it does not start.
class ServerEngine {
 public:
  // `cache` is the folder of its cache. With `hub_port`, there is a hub at that port.
  ServerEngine(const std::wstring& path, const std::wstring& cache, std::optional<int> hub_port);
  ~ServerEngine();
  ServerEngine(const ServerEngine&) = delete;
  ServerEngine& operator=(const ServerEngine&) = delete;

  const Server& server() const { return server_; }
  IKZCEFComApplication2& application() const { return *application_.Get(); }

 private:
  const Server server_;
  Microsoft::WRL::ComPtr<IKZCEFComApplication2> application_;
};

// A browser of the running engine, with a handler that does nothing but tell of the loads.
class ServerView {
 public:
  // Returns when `url` is loaded.
  ServerView(IKZCEFComApplication2& application, const std::wstring& url);
  // Closes the browser by destroying its window.
  ~ServerView();
  ServerView(const ServerView&) = delete;
  ServerView& operator=(const ServerView&) = delete;

  // Returns when the page has been loaded to its end.
  void Load(const std::wstring& url);

 private:
  HWND EngineWindow() const;

  IKZCEFComApplication2& application_;
  std::optional<HostWindow> window_{std::in_place};
  const std::shared_ptr<UniqueHandle> loaded_ = std::make_shared<UniqueHandle>(MakeEvent());
  Microsoft::WRL::ComPtr<IKZCEFComBrowserHandler> handler_;
  Microsoft::WRL::ComPtr<IKZCEFComBrowser> browser_;
};

}  // namespace kzbench
