// Starts CEF, and opens browsers whose client tells of their creation, loads and closing.

#include "cef_view.h"

#include <windows.h>

#include <stdexcept>

namespace kzbench {

CefEngine::CefEngine(CefRefPtr<CefApp> app) {
  CefSettings settings;
  settings.no_sandbox = true;
  settings.multi_threaded_message_loop = true;
  CefString(&settings.root_cache_path) = cache_.path();
  CefString(&settings.cache_path) = cache_.path();
  CefString(&settings.log_file) = cache_.path() + L"\\debug.log";
  if (!CefInitialize(CefMainArgs(GetModuleHandleW(nullptr)), settings, app, nullptr))
    throw std::runtime_error("CEF does not start");
}

CefEngine::~CefEngine() {
  CefShutdown();
}

void BrowserSignals::OnCreated(CefRefPtr<CefBrowser> created_browser) {
  browser = created_browser;
  SetEvent(created.get());
}

void BrowserSignals::OnLoadEnd(const CefRefPtr<CefFrame>& frame) {
  if (frame->IsMain())
    SetEvent(loaded.get());
}

void BrowserSignals::OnClosed() {
  browser = nullptr;
  SetEvent(closed.get());
}

CefView::CefView(const MakeClient& make_client) {
  CefWindowInfo info;
  info.SetAsChild(window_.hwnd(), CefRect(0, 0, 800, 600));
  if (!CefBrowserHost::CreateBrowser(info, make_client(signals_), "about:blank",
                                     CefBrowserSettings(), nullptr, nullptr))
    throw std::runtime_error("CEF creates no browser");
  AwaitEvent(signals_->created.get(), "CEF's browser");
  AwaitEvent(signals_->loaded.get(), "CEF's first page");
}

CefView::~CefView() {
  if (const CefRefPtr<CefBrowser> browser = signals_->browser) {
    browser->GetHost()->CloseBrowser(true);
    try {
      AwaitEvent(signals_->closed.get(), "CEF's browser to close");
    } catch (const std::runtime_error&) {
      // Shutting down closes what is left.
    }
  }
}

void CefView::Load(const std::wstring& url) {
  signals_->browser->GetMainFrame()->LoadURL(url);
  AwaitEvent(signals_->loaded.get(), "the end of CEF's load");
}

namespace {

class BareClient final : public CefClient,
                         public CefDisplayHandler,
                         public CefLifeSpanHandler,
                         public CefLoadHandler,
                         public CefRequestHandler,
                         public CefResourceRequestHandler {
 public:
  explicit BareClient(std::shared_ptr<BrowserSignals> signals) : signals_(std::move(signals)) {}

  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return this; }
  CefRefPtr<CefLifeSpanHandler> GetLifeSpanHandler() override { return this; }
  CefRefPtr<CefLoadHandler> GetLoadHandler() override { return this; }
  CefRefPtr<CefRequestHandler> GetRequestHandler() override { return this; }
  CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(CefRefPtr<CefBrowser>,
                                                                 CefRefPtr<CefFrame>,
                                                                 CefRefPtr<CefRequest>,
                                                                 bool,
                                                                 bool,
                                                                 const CefString&,
                                                                 bool&) override {
    return this;
  }

  void OnAfterCreated(CefRefPtr<CefBrowser> browser) override { signals_->OnCreated(browser); }
  void OnLoadEnd(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame> frame, int) override {
    signals_->OnLoadEnd(frame);
  }
  void OnBeforeClose(CefRefPtr<CefBrowser>) override { signals_->OnClosed(); }

 private:
  const std::shared_ptr<BrowserSignals> signals_;

  IMPLEMENT_REFCOUNTING(BareClient);
};

}  // namespace

CefRefPtr<CefClient> MakeBareClient(const std::shared_ptr<BrowserSignals>& signals) {
  return new BareClient(signals);
}

}  // namespace kzbench
