// Notifications: the way through the server's dispatchers against the bare calls on the handlers.

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "KZCEFComWrapper.h"
#include "automation/application.h"
#include "automation/kzcef_com.h"
#include "benchmarks.h"
#include "com/com_object.h"
#include "plain_handler.h"
#include "server.h"

namespace kzbench {
namespace {

using Microsoft::WRL::ComPtr;

constexpr int kCalls = 200'000;
const std::wstring kUrl = L"https://www.example.com/a/page/of/the/usual/length?with=a&query=too";
// A browser object that was not started has no window.
const HWND kNoWindow = nullptr;
const HWND kStrangeWindow = reinterpret_cast<HWND>(INT64{0x1234});

// Handlers, each registered for a browser object of its own.
class Registrations {
 public:
  explicit Registrations(int count) {
    Check(kzcef::CreateComObject<kzcef::CKZCEFComApplication>(nullptr, IID_PPV_ARGS(&application_)),
          "creating the application object");
    for (int at = 0; at < count; ++at) {
      Entry entry;
      entry.handler = std::make_unique<PlainHandler>();
      entry.identity = entry.handler.get();
      Check(application_->GetKzCEFBrowser(nullptr, 0, &entry.browser), "creating a browser object");
      Check(application_->RegisterKzCEFBrowserCallback(nullptr, at, entry.browser.Get(),
                                                       entry.handler.get()),
            "registering a handler");
      entries_.push_back(std::move(entry));
    }
  }
  ~Registrations() {
    for (const Entry& entry : entries_) {
      application_->UnRegisterKzCEFBrowserCallback(nullptr, 0, entry.browser.Get(),
                                                   entry.handler.get());
    }
  }
  Registrations(const Registrations&) = delete;
  Registrations& operator=(const Registrations&) = delete;

  ComPtr<IKZCEFComBrowserHandler> First() const {
    ComPtr<IKZCEFComBrowserHandler> first;
    Check(entries_.front().identity.As(&first), "asking a handler for its interface");
    return first;
  }

  // The calls that a notification must make, and nothing else.
  void Notify(HWND window, const std::wstring& url, VARIANT_BOOL* cancel) const {
    const auto wanted = reinterpret_cast<INT64>(window);
    const BSTR text = SysAllocStringLen(url.data(), static_cast<UINT>(url.size()));
    for (const Entry& entry : entries_) {
      IUnknown* const browser_identity = entry.browser.Get();
      IKZCEFComBrowser* browser = nullptr;
      if (FAILED(browser_identity->QueryInterface(__uuidof(IKZCEFComBrowser),
                                                  reinterpret_cast<void**>(&browser))))
        continue;
      INT64 own = 0;
      browser->GetWindowHandle(&own);
      browser->Release();
      if (own != wanted)
        continue;
      IUnknown* const handler_identity = entry.identity.Get();
      IKZCEFComBrowserHandler* handler = nullptr;
      if (FAILED(handler_identity->QueryInterface(__uuidof(IKZCEFComBrowserHandler),
                                                  reinterpret_cast<void**>(&handler))))
        continue;
      handler->SetOwnerWndHandle(own);
      handler->BeforeBrowseNotify(text, VARIANT_TRUE, VARIANT_FALSE, cancel);
      handler->Release();
    }
    SysFreeString(text);
  }

  void ExpectCalls(long long expected) const {
    for (const Entry& entry : entries_) {
      if (entry.handler->calls() != expected)
        throw std::runtime_error("a notification did not reach every handler");
    }
  }

 private:
  struct Entry {
    std::unique_ptr<PlainHandler> handler;
    // As a host's handler is known: through the pointer the compiler sees what a call reaches.
    ComPtr<IUnknown> identity;
    ComPtr<IKZCEFComBrowser> browser;
  };

  ComPtr<IKZCEFComApplication2> application_;
  std::vector<Entry> entries_;
};

// One notification through the server, or one through `direct`, `times` over.
template <typename Direct>
void CompareWays(const std::string& name,
                 double aim,
                 int calls,
                 HWND window,
                 const Effort& effort,
                 const Direct& direct) {
  const auto registry = kzcef::KZCEFCom::Get();
  VARIANT_BOOL cancel = VARIANT_FALSE;
  const int times = calls / effort.divisor > 0 ? calls / effort.divisor : 1;
  Compare(
      name, aim, effort,
      [&] {
        return TimePerCall(times, [&](int count) {
          for (int at = 0; at < count; ++at)
            registry->BeforeBrowseNotify(window, kUrl, VARIANT_TRUE, VARIANT_FALSE, &cancel);
        });
      },
      [&] {
        return TimePerCall(times, [&](int count) {
          for (int at = 0; at < count; ++at)
            direct(&cancel);
        });
      });
}

}  // namespace

void RunNotifications(const Effort& effort) {
  PrintHeading("one notification, against the calls in it");
  {
    Registrations one(1);
    const ComPtr<IKZCEFComBrowserHandler> handler = one.First();
    const auto registry = kzcef::KZCEFCom::Get();
    VARIANT_BOOL cancel = VARIANT_FALSE;
    registry->BeforeBrowseNotify(kNoWindow, kUrl, VARIANT_TRUE, VARIANT_FALSE, &cancel);
    one.ExpectCalls(1);
    CompareWays("to one handler, against the bare call", 2.0, kCalls, kNoWindow, effort,
                [&](VARIANT_BOOL* out) {
                  const BSTR text = SysAllocStringLen(kUrl.data(), static_cast<UINT>(kUrl.size()));
                  handler->BeforeBrowseNotify(text, VARIANT_TRUE, VARIANT_FALSE, out);
                  SysFreeString(text);
                });
  }
  for (const int count : {1, 10, 100, 1000}) {
    const Registrations many(count);
    const std::string handlers =
        std::to_string(count) + (count == 1 ? " handler" : " handlers") + ", ";
    const auto direct = [&](HWND window) {
      return [&many, window](VARIANT_BOOL* out) { many.Notify(window, kUrl, out); };
    };
    CompareWays(handlers + "all for this browser", 1.2, kCalls / count, kNoWindow, effort,
                direct(kNoWindow));
    CompareWays(handlers + "all for other browsers", 1.2, kCalls / count, kStrangeWindow, effort,
                direct(kStrangeWindow));
  }
}

}  // namespace kzbench
