// kzbench_requests: what the server's callbacks cost each request, in time and in heap allocations,
// on requests that the benchmark makes in place of an engine's.

#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "automation/kzcef_com.h"
#include "handler/kz_cef_client_handler.h"
#include "heap_count.h"
#include "hub.h"
#include "include/cef_request_handler.h"
#include "include/cef_response.h"
#include "measure.h"
#include "recording_cef/fake_browser.h"
#include "recording_cef/fake_request.h"
#include "utils/tracing.h"

namespace kzbench {
namespace {

constexpr int kRequests = 100'000;
constexpr int kNoHub = -1;
constexpr int kHubPort = 8080;

class BareHandler final : public CefRequestHandler, public CefResourceRequestHandler {
 public:
  CefRefPtr<CefResourceRequestHandler> GetResourceRequestHandler(CefRefPtr<CefBrowser>,
                                                                 CefRefPtr<CefFrame>,
                                                                 CefRefPtr<CefRequest>,
                                                                 bool,
                                                                 bool,
                                                                 const CefString&,
                                                                 bool&) override {
    return this;
  }

 private:
  IMPLEMENT_REFCOUNTING(BareHandler);
};

// A request of a page, as an engine hands it through the callbacks.
class Passage {
 public:
  explicit Passage(cef_resource_type_t type) {
    request_->resource_type = type;
    response_->SetStatus(200);
  }

  void Through(const CefRefPtr<CefRequestHandler>& client) const {
    bool disable_default_handling = false;
    const CefRefPtr<CefResourceRequestHandler> handler = client->GetResourceRequestHandler(
        browser_, frame_, request_, false, false, initiator_, disable_default_handling);
    handler->GetCookieAccessFilter(browser_, frame_, request_);
    if (handler->OnBeforeResourceLoad(browser_, frame_, request_, nullptr) != RV_CONTINUE)
      throw std::runtime_error("a request does not go on");
    handler->GetResourceHandler(browser_, frame_, request_);
    if (handler->OnResourceResponse(browser_, frame_, request_, response_))
      throw std::runtime_error("a request starts again");
    handler->GetResourceResponseFilter(browser_, frame_, request_, response_);
    handler->OnResourceLoadComplete(browser_, frame_, request_, response_, UR_SUCCESS, 100);
  }

  // What the server's callbacks must have done by others.
  void ThroughTheirs(CefResourceManager& manager) const {
    manager.OnBeforeResourceLoad(browser_, frame_, request_, nullptr);
    manager.GetResourceHandler(browser_, frame_, request_);
    // Only a script's own request can be the one whose body the host is told, which its URL says.
    if (request_->GetResourceType() == RT_XHR)
      request_->GetURL();
  }

 private:
  const CefRefPtr<recording_cef::FakeBrowser> browser_ = new recording_cef::FakeBrowser;
  const CefRefPtr<CefFrame> frame_ = browser_->main_frame;
  const CefRefPtr<recording_cef::FakeRequest> request_ =
      new recording_cef::FakeRequest("http://page.test/picture/42.svg?with=a&query=too");
  const CefRefPtr<CefResponse> response_ = CefResponse::Create();
  const CefString initiator_ = "http://page.test";
};

void CompareTimes(const CefRefPtr<kzcef::kzCefClientHandler>& server, const Effort& effort) {
  const Passage passage(RT_IMAGE);
  const CefRefPtr<CefRequestHandler> bare = new BareHandler;
  const int times = kRequests / effort.divisor;
  const auto timed = [times](const std::function<void()>& once) {
    return [once, times] {
      return TimePerCall(times, [&](int count) {
        for (int at = 0; at < count; ++at)
          once();
      });
    };
  };
  const Measured through_server = timed([&] { passage.Through(server); });
  Compare("against callbacks that do nothing", 0, effort, through_server,
          timed([&] { passage.Through(bare); }));
  Compare("against CEF's resource manager alone", 0, effort, through_server,
          timed([&] { passage.ThroughTheirs(*server->resource_manager()); }));
}

// The allocations of one request, beyond those of CEF's own parts.
long long OwnAllocations(const CefRefPtr<kzcef::kzCefClientHandler>& server,
                         cef_resource_type_t type) {
  const Passage passage(type);
  const auto counted = [](const std::function<void()>& once) {
    // The first makes what stays.
    once();
    const HeapCount count;
    once();
    return count.allocations();
  };
  const long long with_ours = counted([&] { passage.Through(server); });
  const long long theirs = counted([&] { passage.ThroughTheirs(*server->resource_manager()); });
  std::printf(
      "%-44s %12lld\n",
      type == RT_XHR ? "heap allocations of our own, by a script" : "heap allocations of our own",
      with_ours - theirs);
  return with_ours - theirs;
}

void RunRequestCallbacks(int hub_port, const Effort& effort) {
  if (kzcef::IsTraceEnabled())
    throw std::runtime_error("tracing is on");
  if (hub_port != kNoHub)
    TurnHubOn(hub_port);
  // Publishes the dispatchers; no handler is registered with them.
  const auto registry = kzcef::KZCEFCom::Get();
  const CefRefPtr<kzcef::kzCefClientHandler> server =
      new kzcef::kzCefClientHandler(nullptr, true, "http://page.test/");
  PrintHeading(hub_port == kNoHub ? "one request's callbacks" : "one request's callbacks, hub on");
  CompareTimes(server, effort);
  const long long own = OwnAllocations(server, RT_IMAGE) + OwnAllocations(server, RT_XHR);
  // The way through the hub makes texts; without it nothing may.
  if (hub_port == kNoHub && own != 0)
    throw std::runtime_error("the callbacks allocate memory");
}

}  // namespace
}  // namespace kzbench

// A program of its own: it counts every allocation, and requests are the benchmark's in place of an
// engine's.
int main(int count, char** words) try {
  kzbench::Effort effort;
  int hub_port = kzbench::kNoHub;
  for (int at = 1; at < count; ++at) {
    const std::string_view word = words[at];
    if (word == "--short") {
      effort = kzbench::EffortOf(true);
    } else if (word == "--hub") {
      hub_port = kzbench::kHubPort;
    } else {
      std::fputs("kzbench_requests [--hub] [--short]\n", stderr);
      return 2;
    }
  }
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
    return 1;
  kzbench::RunRequestCallbacks(hub_port, effort);
  return 0;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "kzbench_requests: %s\n", failure.what());
  return 1;
}
