// The loader of pages that uses CEF without the server.

#include <memory>

#include "cef_view.h"
#include "loaders.h"

namespace kzbench {
namespace {

class BareLoader final : public Loader {
 public:
  void Load(const std::wstring& url) override { view_.Load(url); }

 private:
  const CefEngine engine_{nullptr};
  CefView view_{&MakeBareClient};
};

}  // namespace

std::unique_ptr<Loader> MakeBareLoader() {
  return std::make_unique<BareLoader>();
}

}  // namespace kzbench
