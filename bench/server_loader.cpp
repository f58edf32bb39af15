// The loader of pages that uses the server as a host does, early-bound.

#include <windows.h>

#include <comutil.h>
#include <wrl/client.h>

#include <memory>
#include <stdexcept>

#include "hub_place.h"
#include "loaders.h"
#include "server_view.h"

namespace kzbench {
namespace {

class ServerLoader final : public Loader {
 public:
  explicit ServerLoader(const LoaderOptions& options)
      : engine_(options.server, options.cache, options.hub_port),
        view_(engine_.application(), options.first_url) {
    if (options.hub_port)
      BindHubLibrary(options.url);
  }

  void Load(const std::wstring& url) override { view_.Load(url); }
  void OpenAndClose(const std::wstring& url) override {
    const ServerView another(engine_.application(), url);
  }
  void AddHubHeader() override {
    static constexpr const char* kLines[] = {"X-Hub-Token: 0123456789abcdef"};
    plan_->headers = kLines;
    plan_->header_count = 1;
  }
  int ReadCookies() override {
    VARIANT list;
    Check(cookies_->GetAllCookiesSync(&list), "reading all cookies");
    const ULONG count = list.vt == (VT_ARRAY | VT_BSTR) ? list.parray->rgsabound[0].cElements : 0;
    VariantClear(&list);
    return static_cast<int>(count);
  }

 private:
  // The server looks for the library in the machine's registry until it has found it, which then
  // stays; so the engine misses that part of the registry for one page only.
  void BindHubLibrary(const std::wstring& url) {
    kzhub::HubPlace place;
    plan_ = &place.Install();
    Load(url);
    if (plan_->calls == 0)
      throw std::runtime_error("the hub library is not asked");
  }

  const ServerEngine engine_;
  ServerView view_;
  const Microsoft::WRL::ComPtr<IKZCEFComCookieManager> cookies_ =
      engine_.server().Create<IKZCEFComCookieManager>(__uuidof(KZCEFComCookieManager));
  kzhub::Plan* plan_ = nullptr;
};

}  // namespace

std::unique_ptr<Loader> MakeServerLoader(const LoaderOptions& options) {
  return std::make_unique<ServerLoader>(options);
}

}  // namespace kzbench
