#include <windows.h>

#include <atomic>
#include <memory>
#include <stdexcept>

#include "include/cef_app.h"
#include "include/cef_client.h"
#include "loaders.h"
#include "waiting.h"

namespace kzbench {
namespace {

// Every kind of callback that a browser of the server's asks for, so that the engine does the same
// work for both; none of them does anything.
class BareClient final : public CefClient,
                         public CefDisplayHandler,
                         public CefLifeSpanHandler,
                         public CefLoadHandler,
                         public CefRequestHandler {
 public:
  BareClient(HANDLE created, HANDLE loaded, HANDLE closed)
      : created_(created), loaded_(loaded), closed_(closed) {}

  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return this; }
  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return this; }
  CefRefPtr<CefLoadHandler> GetLoadHandler() override { return this; }
  CefRefPtr<CefRequestHandler> GetRequestHandler() override { return this; }

  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override {
    browser_ = browser;
    SetEvent(created_);
  }
  void OnLoadEnd(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame> frame, int) override {
    if (frame->IsMain())
      SetEvent(loaded_);
  }
  void OnBeforeClose(CefRefPtr<CefBrowser>) override {
    browser_ = nullptr;
    SetEvent(closed_);
  }

  // Set once `created` is signalled, until `closed` is.
  CefRefPtr<CefBrowser> browser() const { return browser_; }

 private:
  const HANDLE created_;
  const HANDLE loaded_;
  const HANDLE closed_;
  CefRefPtr<CefBrowser> browser_;

  IMPLEMENT_REFCOUNTING(BareClient);
};

class BareLoader final : public Loader {
 public:
  BareLoader() {
    CefSettings settings;
    settings.no_sandbox = true;
    settings.multi_threaded_message_loop = true;
    CefString(&settings.root_cache_path) = cache_.path();
    CefString(&settings.cache_path) = cache_.path();
    CefString(&settings.log_file) = cache_.path() + L"\\debug.log";
    if (!CefInitialize(CefMainArgs(GetModuleHandleW(nullptr)), settings, nullptr, nullptr))
      throw std::runtime_error("CEF does not start");
    client_ = new BareClient(created_.get(), loaded_.get(), closed_.get());
    CefWindowInfo info;
    info.SetAsChild(window_.hwnd(), CefRect(0, 0, 800, 600));
    if (!CefBrowserHost::CreateBrowser(info, client_, "about:blank", CefBrowserSettings(), nullptr,
                                       nullptr))
      throw std::runtime_error("CEF creates no browser");
    AwaitEvent(created_.get(), "CEF's browser");
    AwaitEvent(loaded_.get(), "CEF's first page");
  }

  ~BareLoader() override {
    if (const CefRefPtr<CefBrowser> browser = client_->browser()) {
      browser->GetHost()->CloseBrowser(true);
      try {
        AwaitEvent(closed_.get(), "CEF's browser to close");
      } catch (const std::runtime_error&) {
        // Shutting down closes what is left.
      }
    }
    client_ = nullptr;
    CefShutdown();
  }

  void Load(const std::wstring& url) override {
    client_->browser()->GetMainFrame()->LoadURL(url);
    AwaitEvent(loaded_.get(), "the end of CEF's load");
  }

 private:
  const ScratchFolder cache_;
  const HostWindow window_;
  const UniqueHandle created_ = MakeEvent();
  const UniqueHandle loaded_ = MakeEvent();
  const UniqueHandle closed_ = MakeEvent();
  CefRefPtr<BareClient> client_;
};

}  // namespace

std::unique_ptr<Loader> MakeBareLoader() {
  return std::make_unique<BareLoader>();
}

}  // namespace kzbench
