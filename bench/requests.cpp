#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "automation/kzcef_com.h"
#include "benchmarks.h"
#include "cef_view.h"
#include "handler/kz_cef_client_handler.h"
#include "hub.h"
#include "loaders.h"
#include "runtime/kz_cef_app.h"

namespace kzbench {
namespace {

constexpr int kSubResources = 200;

// An owner that only passes its browser on.
class PlainOwner final : public kzcef::kzCefClientHandler::Delegate {
 public:
  explicit PlainOwner(std::shared_ptr<BrowserSignals> signals) : signals_(std::move(signals)) {}

  void OnBrowserCreated(CefRefPtr<CefBrowser> browser) override { signals_->OnCreated(browser); }
  void OnBrowserClosing(CefRefPtr<CefBrowser>) override {}
  void OnBrowserClosed(CefRefPtr<CefBrowser>) override { signals_->OnClosed(); }
  void OnSetAddress(const std::string&) override {}
  void OnSetTitle(const std::string&) override {}
  void OnSetFullscreen(bool) override {}
  void OnAutoResize(const CefSize&) override {}
  void OnSetLoadingState(bool, bool, bool) override {}
  void OnSetDraggableRegions(const std::vector<CefDraggableRegion>&) override {}

 private:
  const std::shared_ptr<BrowserSignals> signals_;
};

// The server's client, which tells the end of a load at the moment at which the bare one does.
class ServerClient final : public kzcef::kzCefClientHandler {
 public:
  explicit ServerClient(const std::shared_ptr<BrowserSignals>& signals)
      : kzCefClientHandler(nullptr, true, "about:blank"), signals_(signals), owner_(signals) {
    SetDelegate(&owner_);
  }

  void OnLoadEnd(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame, int status) override {
    kzCefClientHandler::OnLoadEnd(browser, frame, status);
    signals_->OnLoadEnd(frame);
  }

 private:
  const std::shared_ptr<BrowserSignals> signals_;
  PlainOwner owner_;
};

CefRefPtr<CefClient> MakeServerClient(const std::shared_ptr<BrowserSignals>& signals) {
  return new ServerClient(signals);
}

}  // namespace

void RunRequests(const std::wstring& url, std::optional<int> hub_port, const Effort& effort) {
  PrintHeading(hub_port ? "the requests of a page, hub on" : "the requests of a page");
  kzhub::Plan* const plan = hub_port ? &TurnHubOn(*hub_port) : nullptr;
  // Publishes the dispatchers; no handler is registered with them.
  const auto registry = kzcef::KZCEFCom::Get();
  const CefEngine engine(new kzcef::kzCefApp);
  CefView served(&MakeServerClient);
  CefView bare(&MakeBareClient);
  const Effort loads = {.repetitions = effort.divisor == 1 ? effort.repetitions : 1,
                        .divisor = effort.divisor};
  const auto compare = [&](const char* name) {
    Compare(
        name, 1.05, loads, [&] { return TimeLoad(served, url); },
        [&] { return TimeLoad(bare, url); });
  };
  if (!plan) {
    compare("200 sub-resources, against a bare client");
    return;
  }
  const int asked_before = plan->calls;
  compare("200 sub-resources, as they are");
  if (plan->calls - asked_before < loads.repetitions * kSubResources)
    throw std::runtime_error("the hub library is not asked about every request");
  const char* const lines[] = {"X-Hub-Token: 0123456789abcdef"};
  plan->headers = lines;
  plan->header_count = 1;
  compare("200 sub-resources, with a header of the hub's");
  plan->headers = nullptr;
  plan->header_count = 0;
}

}  // namespace kzbench
