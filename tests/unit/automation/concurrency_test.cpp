// The host's thread changes the tables while an engine thread walks them.

#include "automation_test.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "alike_handler/alike_handler.h"
#include "com/module.h"

namespace kzcef::testing {
namespace {

constexpr int kRounds = 3000;

// A handler that only counts, and destroys itself with its last reference.
class CountingHandler final : public AlikeHandler<CountingHandler> {
 public:
  static inline std::atomic<int> alive{0};
  static inline std::atomic<int> load_ends{0};
  static inline std::atomic<bool> was_called_dead{false};

  static ComPtr<IKZCEFComBrowserHandler3> Make() { return new CountingHandler(); }

  HRESULT Noted() const {
    Check();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    Check();
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IKZCEFComBrowserHandler) ||
        IsEqualIID(iid, IID_IKZCEFComBrowserHandler2) ||
        IsEqualIID(iid, IID_IKZCEFComBrowserHandler3)) {
      *object = this;
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    Check();
    return ++references_;
  }
  ULONG STDMETHODCALLTYPE Release() override {
    Check();
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE LoadEndNotify(LONG) override {
    ++load_ends;
    return Noted();
  }

 private:
  static constexpr unsigned kAlive = 0xA11FE;

  CountingHandler() { ++alive; }
  ~CountingHandler() {
    life_ = 0;
    --alive;
  }
  void Check() const {
    if (life_ != kAlive) {
      was_called_dead = true;
    }
  }

  std::atomic<ULONG> references_{0};
  std::atomic<unsigned> life_{kAlive};
};

class Concurrency : public AutomationTest {
 protected:
  // Raises notifications for the browsers' windows until `stop`.
  void RaiseUntil(const std::atomic<bool>& stop, const std::atomic<int>& newest) {
    while (!stop) {
      for (int n = std::max(1, newest - 2); n <= newest + 1; ++n) {
        const HWND window = FakeBridge::WindowOf(n);
        registry->BrowserCreatedNotify(window);
        registry->AddressChangeNotify(window, L"http://a/");
        VARIANT_BOOL popup = VARIANT_FALSE;
        VARIANT_BOOL proceed = VARIANT_TRUE;
        registry->BeforePopupNotify(window, L"http://p/", &popup, &proceed);
        registry->KeyStrokeNotify(window, 1, &popup);
        registry->LoadEndNotify(window, 200);
      }
    }
  }
};

TEST_F(Concurrency, RegistersAndReleasesUnderTwoWalkingThreads) {
  const long before = ModuleLock::Count();
  std::atomic<bool> stop{false};
  std::atomic<int> newest{0};
  {
    const std::jthread first([&] { RaiseUntil(stop, newest); });
    const std::jthread second([&] { RaiseUntil(stop, newest); });
    for (int round = 0; round < kRounds; ++round) {
      auto browser = NewBrowser();
      browser->AddJSHandler(_bstr_t(L"name"), reinterpret_cast<IDispatch*>(0x10));
      browser->StartBrowser(Value(kParent));
      newest = round + 1;
      auto one = CountingHandler::Make();
      auto two = CountingHandler::Make();
      Register(browser, *one.Get());
      Register(browser, *two.Get());
      if (round % 2 == 0) {
        one.Reset();
        Unregister(browser, *two.Get());
      } else {
        // The browser goes first, while its handlers are still registered.
        browser.Reset();
        const auto any = NewBrowser();
        Unregister(any, *one.Get());
        Unregister(any, *two.Get());
      }
    }
    stop = true;
  }
  EXPECT_EQ(CountingHandler::alive, 0);
  EXPECT_FALSE(CountingHandler::was_called_dead);
  EXPECT_EQ(ModuleLock::Count(), before);
  EXPECT_FALSE(registry->HasHandlers());
}

TEST_F(Concurrency, LosesNoNotificationOfAHandlerThatStays) {
  const auto browser = StartedBrowser();
  auto staying = CountingHandler::Make();
  Register(browser, *staying.Get());
  const auto other = StartedBrowser();
  std::atomic<bool> stop{false};
  {
    const std::jthread host([&] {
      while (!stop) {
        auto passing = CountingHandler::Make();
        Register(other, *passing.Get());
        Unregister(other, *passing.Get());
      }
    });
    for (int round = 0; round < kRounds; ++round) {
      registry->LoadEndNotify(first_window, 200);
    }
    stop = true;
  }
  EXPECT_EQ(CountingHandler::load_ends, kRounds);
  Unregister(browser, *staying.Get());
  staying.Reset();
  EXPECT_EQ(CountingHandler::alive, 0);
}

TEST_F(Concurrency, NotificationFindsABrowserWhoseStartHasNotReturned) {
  auto handler = CountingHandler::Make();
  const auto browser = NewBrowser();
  Register(browser, *handler.Get());
  std::jthread engine;
  std::promise<void> notified;
  // The engine is quicker than the bridge's return; who looks must wait for the browser object.
  bridge.on_started = [&] {
    engine = std::jthread([&] {
      registry->LoadEndNotify(first_window, 200);
      notified.set_value();
    });
    EXPECT_EQ(notified.get_future().wait_for(std::chrono::milliseconds(200)),
              std::future_status::timeout);
  };
  const int before = CountingHandler::load_ends;
  browser->StartBrowser(Value(kParent));
  engine.join();
  EXPECT_EQ(CountingHandler::load_ends, before + 1);
  Unregister(browser, *handler.Get());
}

}  // namespace
}  // namespace kzcef::testing
