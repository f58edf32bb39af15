// The handler table and the handler-to-browser table, seen through the references that they hold
// and the notifications that arrive.

#include "automation_test.h"
#include "foreign_browser.h"

#include <array>

namespace kzcef::testing {
namespace {

using ::testing::_;
using ::testing::NiceMock;

class Registration : public AutomationTest {
 protected:
  // How often a load end for the window reaches the handler.
  int Reached(MockHandler& mock, HWND window) {
    int count = 0;
    EXPECT_CALL(mock, LoadEndNotify(_)).WillRepeatedly([&](LONG) {
      ++count;
      return S_OK;
    });
    registry->LoadEndNotify(window, 200);
    ::testing::Mock::VerifyAndClearExpectations(&mock);
    return count;
  }

  NiceMock<MockHandler> handler;
  NiceMock<MockHandler> other_handler;
  const ComPtr<IKZCEFComBrowser> browser = StartedBrowser();
  const ComPtr<IKZCEFComBrowser> other_browser = StartedBrowser();
};

TEST_F(Registration, HoldsOneReferenceOnTheHandlerAndNoneOnTheBrowser) {
  browser->AddRef();
  const ULONG before = browser->Release();
  Register(browser, handler);
  EXPECT_EQ(handler.references(), 1U);
  browser->AddRef();
  EXPECT_EQ(browser->Release(), before);
  Unregister(browser, handler);
  EXPECT_EQ(handler.references(), 0U);
  EXPECT_EQ(Reached(handler, first_window), 0);
}

TEST_F(Registration, TwiceLeavesAReferenceThatNobodyGivesBack) {
  Register(browser, handler);
  Register(browser, handler);
  EXPECT_EQ(handler.references(), 2U);
  EXPECT_EQ(Reached(handler, first_window), 1);
  Unregister(browser, handler);
  EXPECT_EQ(handler.references(), 1U);
  Unregister(browser, handler);
  EXPECT_EQ(handler.references(), 1U);
}

TEST_F(Registration, OfOneHandlerForTwoBrowsersKeepsTheFirst) {
  Register(browser, handler);
  Register(other_browser, handler);
  EXPECT_EQ(Reached(handler, first_window), 1);
  EXPECT_EQ(Reached(handler, second_window), 0);
}

TEST_F(Registration, MakesSomebodyListenForAsLongAsItLasts) {
  EXPECT_FALSE(registry->IsAnyoneListening());
  Register(browser, handler);
  EXPECT_TRUE(registry->IsAnyoneListening());
  application->UnRegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), &handler);
  EXPECT_FALSE(registry->IsAnyoneListening());
}

TEST_F(Registration, NeedsBothObjects) {
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback(nullptr, 1, nullptr, &handler), S_OK);
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), nullptr), S_OK);
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback2(nullptr, 1, nullptr, &handler), S_OK);
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback2(nullptr, 1, browser.Get(), nullptr), S_OK);
  EXPECT_EQ(handler.references(), 0U);
  EXPECT_FALSE(registry->HasHandlers());
}

TEST_F(Registration, WithSomethingThatIsNoBrowserKeepsTheHandlerUnpaired) {
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback2(nullptr, 1, application.Get(), &handler),
            S_OK);
  EXPECT_EQ(handler.references(), 1U);
  EXPECT_EQ(Reached(handler, first_window), 0);
  // It can still be paired.
  Register(browser, handler);
  EXPECT_EQ(Reached(handler, first_window), 1);
}

TEST_F(Registration, OfSomethingThatIsNoHandlerDoesNothing) {
  EXPECT_EQ(
      application->RegisterKzCEFBrowserCallback2(nullptr, 1, browser.Get(), other_browser.Get()),
      S_OK);
  EXPECT_FALSE(registry->HasHandlers());
}

TEST_F(Registration, IgnoresTheToken) {
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback2(browser.Get(), 1, browser.Get(), &handler),
            S_OK);
  EXPECT_EQ(Reached(handler, first_window), 1);
}

TEST_F(Registration, EndsForEveryHandlerOfTheBrowser) {
  Register(browser, handler);
  Register(browser, other_handler);
  NiceMock<MockHandler> third;
  Register(browser, third);
  NiceMock<MockHandler> of_the_other;
  Register(other_browser, of_the_other);
  Unregister(browser, handler);
  EXPECT_EQ(handler.references(), 0U);
  EXPECT_EQ(other_handler.references(), 0U);
  EXPECT_EQ(third.references(), 0U);
  EXPECT_EQ(of_the_other.references(), 1U);
  EXPECT_EQ(Reached(of_the_other, second_window), 1);
}

TEST_F(Registration, EndsForTheHandlerAndForTheOtherBrowsersHandlers) {
  Register(browser, handler);
  Register(other_browser, other_handler);
  // The handler of one browser, named together with the other browser.
  Unregister(other_browser, handler);
  EXPECT_EQ(handler.references(), 0U);
  EXPECT_EQ(other_handler.references(), 0U);
}

TEST_F(Registration, EndsForTheHandlerAloneWithSomethingThatIsNoBrowser) {
  Register(browser, handler);
  Register(browser, other_handler);
  EXPECT_EQ(application->UnRegisterKzCEFBrowserCallback2(nullptr, 1, application.Get(), &handler),
            S_OK);
  EXPECT_EQ(handler.references(), 0U);
  EXPECT_EQ(other_handler.references(), 1U);
  EXPECT_EQ(Reached(handler, first_window), 0);
  EXPECT_EQ(Reached(other_handler, first_window), 1);
}

TEST_F(Registration, EndsForABrowsersHandlersWithSomethingThatIsNoHandler) {
  Register(browser, handler);
  EXPECT_EQ(
      application->UnRegisterKzCEFBrowserCallback2(nullptr, 1, browser.Get(), other_browser.Get()),
      S_OK);
  EXPECT_EQ(handler.references(), 0U);
}

TEST_F(Registration, IsNotEndedWithoutBothObjects) {
  Register(browser, handler);
  application->UnRegisterKzCEFBrowserCallback(nullptr, 7, nullptr, &handler);
  application->UnRegisterKzCEFBrowserCallback(nullptr, 7, browser.Get(), nullptr);
  application->UnRegisterKzCEFBrowserCallback2(nullptr, 7, nullptr, &handler);
  application->UnRegisterKzCEFBrowserCallback2(nullptr, 7, browser.Get(), nullptr);
  EXPECT_EQ(handler.references(), 1U);
}

TEST_F(Registration, IsEndedWhateverTheAddIn) {
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), &handler), S_OK);
  EXPECT_EQ(application->UnRegisterKzCEFBrowserCallback(nullptr, 2, browser.Get(), &handler), S_OK);
  EXPECT_EQ(handler.references(), 0U);
}

TEST_F(Registration, CanBeMadeAnew) {
  Register(browser, handler);
  Unregister(browser, handler);
  Register(other_browser, handler);
  EXPECT_EQ(Reached(handler, second_window), 1);
  EXPECT_EQ(handler.references(), 1U);
}

// A handler object with an identity apart from its interface, as objects have whose interfaces come
// from several bases.
class TwoFacedHandler final : public NiceMock<MockHandler> {
 public:
  class Identity final : public IUnknown {
   public:
    explicit Identity(TwoFacedHandler& owner) : owner_(owner) {}
    ULONG references = 0;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
      return owner_.QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

   private:
    TwoFacedHandler& owner_;
  };
  Identity identity{*this};
};

TEST_F(Registration, GenericKnowsTheHandlerByThePointerPassed) {
  TwoFacedHandler two_faced;
  application->RegisterKzCEFBrowserCallback2(nullptr, 1, browser.Get(), &two_faced.identity);
  EXPECT_EQ(two_faced.identity.references, 1U);
  EXPECT_EQ(two_faced.references(), 0U);
  EXPECT_EQ(Reached(two_faced, first_window), 1);
  // Its interface pointer is another key.
  EXPECT_EQ(application->UnRegisterKzCEFBrowserCallback2(nullptr, 1, application.Get(), &two_faced),
            S_OK);
  EXPECT_EQ(Reached(two_faced, first_window), 1);
  application->UnRegisterKzCEFBrowserCallback2(nullptr, 1, browser.Get(), &two_faced.identity);
  EXPECT_EQ(two_faced.identity.references, 0U);
}

TEST_F(Registration, TypedKnowsTheHandlerByItsInterface) {
  TwoFacedHandler two_faced;
  Register(browser, two_faced);
  EXPECT_EQ(two_faced.identity.references, 0U);
  EXPECT_EQ(two_faced.references(), 1U);
}

TEST_F(Registration, OfOneObjectByTwoPointersIsTwoRegistrations) {
  TwoFacedHandler two_faced;
  Register(browser, two_faced);
  application->RegisterKzCEFBrowserCallback2(nullptr, 1, browser.Get(), &two_faced.identity);
  EXPECT_EQ(Reached(two_faced, first_window), 2);
}

TEST_F(Registration, OfABrowserThatWentAwayDoesNotHoldTheHandlerBack) {
  auto gone = StartedBrowser();
  Register(gone, handler);
  gone.Reset();
  EXPECT_EQ(handler.references(), 1U);
  Register(browser, handler);
  EXPECT_EQ(Reached(handler, first_window), 1);
}

TEST_F(Registration, IsSharedByAllApplicationObjects) {
  const auto another = NewApplication();
  Register(browser, handler);
  another->UnRegisterKzCEFBrowserCallback(nullptr, 7, browser.Get(), &handler);
  EXPECT_EQ(handler.references(), 0U);
}

// A host may drop its last reference on a handler while the table still calls into it.
TEST_F(Registration, MayEndInsideTheHandlersOwnRelease) {
  class LastBreath final : public NiceMock<MockHandler> {
   public:
    std::function<void()> on_release;
    ULONG STDMETHODCALLTYPE Release() override {
      const ULONG left = MockHandler::Release();
      if (left == 0 && on_release) {
        std::exchange(on_release, nullptr)();
      }
      return left;
    }
  } dying;
  Register(browser, dying);
  bool released = false;
  dying.on_release = [&] {
    released = true;
    // The table must not be locked by now.
    Register(browser, handler);
    Unregister(browser, handler);
  };
  Unregister(browser, dying);
  EXPECT_TRUE(released);
}

TEST_F(Registration, EndsWithoutAQuestionWhereThereIsNone) {
  ForeignBrowser foreign(first_window);
  EXPECT_EQ(application->UnRegisterKzCEFBrowserCallback(nullptr, 7, &foreign, &handler), S_OK);
  EXPECT_EQ(application->UnRegisterKzCEFBrowserCallback2(nullptr, 7, &foreign, &handler), S_OK);
  EXPECT_EQ(foreign.queries, 0);
}

TEST_F(Registration, AsksNoBrowserForSomethingThatIsNoHandler) {
  ForeignBrowser foreign(first_window);
  ForeignBrowser no_handler(first_window);
  EXPECT_EQ(application->RegisterKzCEFBrowserCallback2(nullptr, 7, &foreign, &no_handler), S_OK);
  EXPECT_EQ(foreign.queries, 0);
}

}  // namespace
}  // namespace kzcef::testing
