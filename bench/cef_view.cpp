// Starts CEF, and opens browsers whose client tells of their creation, loads and closing.

#include "cef_view.h"

#include <windows.h>

#include <stdexcept>

#include "program.h"

namespace kzbench {
namespace {

// The switches that the server sets.
class BareApp final : public CefApp {
 public:
  explicit BareApp(std::optional<int> proxy_port) : proxy_port_(proxy_port) {}

  void OnBeforeCommandLineProcessing(const CefString&,
                                     CefRefPtr<CefCommandLine> command_line) override {
    if (proxy_port_) {
      command_line->AppendSwitchWithValue("proxy-server",
                                          "127.0.0.1:" + std::to_string(*proxy_port_));
    }
    command_line->AppendSwitch("enable-print-preview");
  }

 private:
  const std::optional<int> proxy_port_;

  IMPLEMENT_REFCOUNTING(BareApp);
};

}  // namespace

CefEngine::CefEngine(const std::wstring& cache, std::optional<int> proxy_port) {
  CefSettings settings;
  settings.no_sandbox = true;
  settings.multi_threaded_message_loop = true;
  CefString(&settings.browser_subprocess_path) = BesideThisProgram(L"kzCefSubProc.exe");
  CefString(&settings.cache_path) = cache;
  CefString(&settings.log_file) = cache + L"\\debug.log";
  if (!CefInitialize(CefMainArgs(GetModuleHandleW(nullptr)), settings, new BareApp(proxy_port),
                     nullptr))
    throw std::runtime_error("CEF does not start");
}

CefEngine::~CefEngine() {
  CefShutdown();
}

class CefView::Client final : public CefClient,
                              public CefContextMenuHandler,
                              public CefDisplayHandler,
                              public CefDownloadHandler,
                              public CefDragHandler,
                              public CefFocusHandler,
                              public CefKeyboardHandler,
                              public CefLifeSpanHandler,
                              public CefLoadHandler,
                              public CefRequestHandler,
                              public CefResourceRequestHandler {
 public:
  CefRefPtr<CefContextMenuHandler> GetContextMenuHandler() override { return this; }
  CefRefPtr<CefDisplayHandler> GetDisplayHandler() override { return this; }
  CefRefPtr<CefDownloadHandler> GetDownloadHandler() override { return this; }
  CefRefPtr<CefDragHandler> GetDragHandler() override { return this; }
  CefRefPtr<CefFocusHandler> GetFocusHandler() override { return this; }
  CefRefPtr<CefKeyboardHandler> GetKeyboardHandler() override { return this; }
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

  void OnBeforeDownload(CefRefPtr<CefBrowser>,
                        CefRefPtr<CefDownloadItem>,
                        const CefString&,
                        CefRefPtr<CefBeforeDownloadCallback>) override {}
  void OnAfterCreated(CefRefPtr<CefBrowser> created) override { browser = created; }
  void OnLoadEnd(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame> frame, int) override {
    if (frame->IsMain())
      SetEvent(loaded.get());
  }
  void OnBeforeClose(CefRefPtr<CefBrowser>) override {
    browser = nullptr;
    SetEvent(closed.get());
  }

  // From the first load until `closed` is signalled.
  CefRefPtr<CefBrowser> browser;
  // The end of the main frame's load.
  const UniqueHandle loaded = MakeEvent();
  const UniqueHandle closed = MakeEvent();

 private:
  IMPLEMENT_REFCOUNTING(Client);
};

CefView::CefView(const std::wstring& url) : client_(new Client) {
  CefWindowInfo info;
  info.SetAsChild(window_->hwnd(), CefRect(0, 0, 800, 600));
  if (!CefBrowserHost::CreateBrowser(info, client_, url, CefBrowserSettings(), nullptr, nullptr))
    throw std::runtime_error("CEF creates no browser");
  AwaitEvent(client_->loaded.get(), "CEF's first page");
}

CefView::~CefView() {
  window_.reset();
  try {
    AwaitEvent(client_->closed.get(), "CEF's browser to close");
  } catch (const std::runtime_error&) {
    // Shutting down closes what is left.
  }
}

void CefView::Load(const std::wstring& url) {
  client_->browser->GetMainFrame()->LoadURL(url);
  AwaitEvent(client_->loaded.get(), "the end of CEF's load");
}

}  // namespace kzbench
