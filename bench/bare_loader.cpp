// The loader of pages that uses CEF without the server.

#include <memory>

#include "cef_view.h"
#include "loaders.h"

namespace kzbench {
namespace {

class BareLoader final : public Loader {
 public:
  explicit BareLoader(const LoaderOptions& options)
      : engine_(options.cache, options.hub_port), view_(options.first_url) {}

  void Load(const std::wstring& url) override { view_.Load(url); }
  void OpenAndClose(const std::wstring& url) override { const CefView another(url); }

 private:
  const CefEngine engine_;
  CefView view_;
};

}  // namespace

std::unique_ptr<Loader> MakeBareLoader(const LoaderOptions& options) {
  return std::make_unique<BareLoader>(options);
}

}  // namespace kzbench
