// Browsers of CEF's own, without the server, on one engine.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "include/cef_app.h"
#include "include/cef_client.h"
#include "loaders.h"
#include "waiting.h"

namespace kzbench {

/// CEF's engine in this process, with a cache of its own; a process starts it once. Throws
/// std::runtime_error when it does not start.
class CefEngine {
 public:
  /// `app` may be null.
  explicit CefEngine(CefRefPtr<CefApp> app);
  ~CefEngine();
  CefEngine(const CefEngine&) = delete;
  CefEngine& operator=(const CefEngine&) = delete;

 private:
  const ScratchFolder cache_;
};

/// What a client tells about its browser.
struct BrowserSignals {
  /// `browser` is set once `created` is signalled, until `closed` is.
  CefRefPtr<CefBrowser> browser;
  const UniqueHandle created = MakeEvent();
  /// The end of the main frame's load.
  const UniqueHandle loaded = MakeEvent();
  const UniqueHandle closed = MakeEvent();

  void OnCreated(CefRefPtr<CefBrowser> created_browser);
  void OnLoadEnd(const CefRefPtr<CefFrame>& frame);
  void OnClosed();
};

/// A browser of the running engine whose client is what `make_client` answers; that tells the
/// signals.
class CefView final : public Loader {
 public:
  using MakeClient =
      std::function<CefRefPtr<CefClient>(const std::shared_ptr<BrowserSignals>& signals)>;

  explicit CefView(const MakeClient& make_client);
  ~CefView() override;

  void Load(const std::wstring& url) override;

 private:
  const HostWindow window_;
  const std::shared_ptr<BrowserSignals> signals_ = std::make_shared<BrowserSignals>();
};

/// A client with every kind of callback that the server's asks for, so that the engine does the
/// same work for both; none of them does anything.
CefRefPtr<CefClient> MakeBareClient(const std::shared_ptr<BrowserSignals>& signals);

}  // namespace kzbench
