// The loader of pages that uses the server as a host does, early-bound.

#include <windows.h>

#include <comutil.h>
#include <wrl/client.h>

#include <memory>

#include "KZCEFComWrapper.h"
#include "loaders.h"
#include "plain_handler.h"
#include "server.h"
#include "waiting.h"

namespace kzbench {
namespace {

using Microsoft::WRL::ComPtr;

class ServerLoader final : public Loader {
 public:
  explicit ServerLoader(const std::wstring& path) : server_(path) {
    handler_.on_browser_created = [this] { SetEvent(created_.get()); };
    handler_.on_load_end = [this] { SetEvent(loaded_.get()); };
    application_ = server_.Create<IKZCEFComApplication2>(__uuidof(KZCEFComApplication));
    ComPtr<IKZCEFComSettings> settings;
    Check(application_->GetKzCEFComSettings(nullptr, &settings), "getting the settings");
    settings->put_MultiThreadedMessageLoop(VARIANT_TRUE);
    settings->put_CachePath(_bstr_t(cache_.path().c_str()));
    Check(application_->InitCef(nullptr, settings.Get()), "starting the server's engine");
    Check(application_->GetKzCEFBrowser(nullptr, 0, &browser_), "getting a browser object");
    Check(application_->RegisterKzCEFBrowserCallback(nullptr, 1, browser_.Get(), &handler_),
          "registering a handler");
    browser_->put_URL(_bstr_t(L"about:blank"));
    Check(browser_->StartBrowser(reinterpret_cast<INT64>(window_.hwnd())), "starting a browser");
    AwaitEvent(created_.get(), "the server's browser");
    AwaitEvent(loaded_.get(), "the server's first page");
  }

  ~ServerLoader() override {
    application_->HostClosing(VARIANT_TRUE);
    application_->UnRegisterKzCEFBrowserCallback(nullptr, 1, browser_.Get(), &handler_);
    browser_.Reset();
    application_->ExitCef(nullptr);
  }

  void Load(const std::wstring& url) override {
    Check(browser_->put_URL(_bstr_t(url.c_str())), "loading a page by the server");
    AwaitEvent(loaded_.get(), "the end of the server's load");
  }

 private:
  const Server server_;
  const ScratchFolder cache_;
  const HostWindow window_;
  const UniqueHandle created_ = MakeEvent();
  const UniqueHandle loaded_ = MakeEvent();
  PlainHandler handler_;
  ComPtr<IKZCEFComApplication2> application_;
  ComPtr<IKZCEFComBrowser> browser_;
};

}  // namespace

std::unique_ptr<Loader> MakeServerLoader(const std::wstring& path) {
  return std::make_unique<ServerLoader>(path);
}

}  // namespace kzbench
