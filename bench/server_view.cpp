#include "server_view.h"

#include <comutil.h>

#include <stdexcept>

#include "plain_handler.h"

namespace kzbench {
namespace {

// Lives as long as somebody refers to it: a notification may still be under way when its browser
// has gone.
class LoadHandler final : public PlainHandler {
 public:
  explicit LoadHandler(std::shared_ptr<UniqueHandle> loaded) {
    on_load_end = [loaded = std::move(loaded)] { SetEvent(loaded->get()); };
  }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = PlainHandler::Release();
    if (left == 0)
      delete this;
    return left;
  }
};

}  // namespace

ServerEngine::ServerEngine(const std::wstring& path,
                           const std::wstring& cache,
                           std::optional<int> hub_port)
    : server_(path) {
  application_ = server_.Create<IKZCEFComApplication2>(__uuidof(KZCEFComApplication));
  Microsoft::WRL::ComPtr<IKZCEFComSettings> settings;
  Check(application_->GetKzCEFComSettings(nullptr, &settings), "getting the settings");
  settings->put_MultiThreadedMessageLoop(VARIANT_TRUE);
  settings->put_CachePath(_bstr_t(cache.c_str()));
  if (hub_port)
    settings->put_HubPort(*hub_port);
  Check(application_->InitCef(nullptr, settings.Get()), "starting the server's engine");
}

ServerEngine::~ServerEngine() {
  application_->HostClosing(VARIANT_TRUE);
  application_->ExitCef(nullptr);
}

ServerView::ServerView(IKZCEFComApplication2& application, const std::wstring& url)
    : application_(application), handler_(new LoadHandler(loaded_)) {
  Check(application_.GetKzCEFBrowser(nullptr, 0, &browser_), "getting a browser object");
  Check(application_.RegisterKzCEFBrowserCallback(nullptr, 1, browser_.Get(), handler_.Get()),
        "registering a handler");
  browser_->put_URL(_bstr_t(url.c_str()));
  Check(browser_->StartBrowser(reinterpret_cast<INT64>(window_->hwnd())), "starting a browser");
  AwaitEvent(loaded_->get(), "the server's first page");
}

ServerView::~ServerView() {
  const HWND engine_window = EngineWindow();
  application_.UnRegisterKzCEFBrowserCallback(nullptr, 1, browser_.Get(), handler_.Get());
  window_.reset();
  try {
    AwaitTrue([&] { return !IsWindow(engine_window) && EngineWindow() != engine_window; },
              "the server's browser to close");
  } catch (const std::runtime_error&) {
    // The engine's end closes what is left.
  }
}

void ServerView::Load(const std::wstring& url) {
  Check(browser_->put_URL(_bstr_t(url.c_str())), "loading a page by the server");
  AwaitEvent(loaded_->get(), "the end of the server's load");
}

HWND ServerView::EngineWindow() const {
  INT64 window = 0;
  browser_->GetWindowHandle(&window);
  return reinterpret_cast<HWND>(window);
}

}  // namespace kzbench
