// Two ways to show pages, each of which needs an engine, and so a process, of its own: the server,
// and CEF alone.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace kzbench {

// An engine with one browser in a window. To be used and deleted on one thread, which takes window
// messages while it waits. Every member throws std::runtime_error when it fails or nothing happens
// for two minutes.
class Loader {
 public:
  virtual ~Loader() = default;
  Loader(const Loader&) = delete;
  Loader& operator=(const Loader&) = delete;

  // Returns when the page has been loaded to its end.
  virtual void Load(const std::wstring& url) = 0;
  // Loads the page in one more browser, in a window of its own, and closes that.
  virtual void OpenAndClose(const std::wstring& url) = 0;
  // Has a hub library add a header to every request from now on; of no effect on CEF alone.
  virtual void AddHubHeader() {}
  // Reads all cookies by the server, and returns how many there are.
  virtual int ReadCookies() { throw std::runtime_error("CEF alone reads no cookies"); }

 protected:
  Loader() = default;
};

// What a loader is to do.
struct LoaderOptions {
  // The server's path; empty for CEF alone.
  std::wstring server;
  // The page to measure.
  std::wstring url;
  // The folder of the engine's cache: one of its own, which it keeps open until its process ends.
  std::wstring cache;
  // What the browser shows first.
  std::wstring first_url = L"about:blank";
  // With it, requests go through the hub at this port, and the server asks a hub library about
  // them.
  std::optional<int> hub_port;
};

// The server with its engine, used early-bound, with a handler registered. Returns when the first
// page is loaded.
std::unique_ptr<Loader> MakeServerLoader(const LoaderOptions& options);

// CEF with its engine and without the server, with the callbacks that a browser of the server's
// has. Returns when the first page is loaded.
std::unique_ptr<Loader> MakeBareLoader(const LoaderOptions& options);

}  // namespace kzbench
