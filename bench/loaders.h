// Two ways to show a page: a browser of the server's, and one of CEF's own on the same engine.
#pragma once

#include <memory>
#include <string>

namespace kzbench {

/// One browser in a window of its own. To be used and deleted on one thread, which takes window
/// messages while it waits. Every member throws std::runtime_error when it fails or nothing happens
/// for half a minute.
class Loader {
 public:
  virtual ~Loader() = default;
  Loader(const Loader&) = delete;
  Loader& operator=(const Loader&) = delete;

  /// Returns when the page has been loaded to its end.
  virtual void Load(const std::wstring& url) = 0;

 protected:
  Loader() = default;
};

/// The time in seconds in which `loader` loads `url`. Leaves a blank page, so that the next load is
/// of a page that is not there yet.
double TimeLoad(Loader& loader, const std::wstring& url);

/// The server at `path` with its engine, used early-bound, with a handler registered. Returns when
/// the browser exists.
std::unique_ptr<Loader> MakeServerLoader(const std::wstring& path);

/// CEF with its engine and without the server, with the callbacks that a browser of the server's
/// has. Returns when the browser exists.
std::unique_ptr<Loader> MakeBareLoader();

}  // namespace kzbench
