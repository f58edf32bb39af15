// The browser object: what its members ask of the bridge and what
// they return, with and without a bridge.

#include "automation/browser.h"

#include "automation_test.h"

namespace kzcef::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

IDispatch* const kObject = reinterpret_cast<IDispatch*>(0x10);

class Browser : public AutomationTest {
 protected:
  __int64 WindowOf(const ComPtr<IKZCEFComBrowser>& browser) {
    __int64 window = -1;
    EXPECT_EQ(browser->GetWindowHandle(&window), S_OK);
    return window;
  }
};

TEST_F(Browser, OpensItsStoredUrlWhenItIsStarted) {
  const auto browser = NewBrowser();
  EXPECT_EQ(browser->put_URL(_bstr_t(L"http://a/")), S_FALSE);
  EXPECT_EQ(browser->StartBrowser(Value(kParent)), S_OK);
  EXPECT_THAT(bridge.calls(), ElementsAre("StartBrowser(1280, http://a/)"));
}

TEST_F(Browser, StartsWithoutAUrlToo) {
  StartedBrowser();
  EXPECT_EQ(bridge.calls().front(), "StartBrowser(1280, )");
}

TEST_F(Browser, LoadsAUrlOnceItHasAWindow) {
  const auto browser = StartedBrowser();
  bridge.ForgetCalls();
  EXPECT_EQ(browser->put_URL(_bstr_t(L"http://a/")), S_OK);
  EXPECT_THAT(bridge.calls(), ElementsAre("LoadURL(http://a/, 1)"));
  bridge.succeeds = false;
  EXPECT_EQ(browser->put_URL(_bstr_t(L"http://b/")), S_FALSE);
}

TEST_F(Browser, OnlyStoresAUrlWhileThereIsNoWindow) {
  const auto browser = StartedBrowser();
  bridge.SetHasBrowser(1, false);
  bridge.ForgetCalls();
  EXPECT_EQ(browser->put_URL(_bstr_t(L"http://a/")), S_FALSE);
  EXPECT_THAT(bridge.calls(), IsEmpty());
  browser->StartBrowser(Value(kParent));
  EXPECT_THAT(bridge.calls(), ElementsAre("StartBrowser(1280, http://a/)"));
}

TEST_F(Browser, TakesANullUrlForAnEmptyOne) {
  const auto browser = NewBrowser();
  browser->put_URL(_bstr_t(L"http://a/"));
  EXPECT_EQ(browser->put_URL(nullptr), S_FALSE);
  browser->StartBrowser(Value(kParent));
  EXPECT_THAT(bridge.calls(), ElementsAre("StartBrowser(1280, )"));
}

TEST_F(Browser, AnswersTheEnginesUrlAndNotTheStoredOne) {
  const auto browser = StartedBrowser();
  browser->put_URL(_bstr_t(L"http://stored/"));
  bridge.current_url = L"http://current/";
  _bstr_t url;
  EXPECT_EQ(browser->get_URL(url.GetAddress()), S_OK);
  EXPECT_THAT(url.GetBSTR(), IsBstr(L"http://current/"));
  EXPECT_EQ(browser->get_URL(nullptr), S_OK);
}

TEST_F(Browser, AnswersTheWindowOfTheEnginesBrowser) {
  EXPECT_EQ(WindowOf(NewBrowser()), 0);
  const auto browser = StartedBrowser();
  EXPECT_EQ(WindowOf(browser), Value(first_window));
  bridge.SetHasBrowser(1, false);
  EXPECT_EQ(WindowOf(browser), 0);
  EXPECT_EQ(browser->GetWindowHandle(nullptr), S_OK);
}

TEST_F(Browser, PassesItsCallsOnForItsOwnInstance) {
  const auto first = StartedBrowser();
  const auto second = StartedBrowser();
  bridge.ForgetCalls();
  // Failures below show nowhere.
  bridge.succeeds = false;
  EXPECT_EQ(first->ExecuteJS(_bstr_t(L"f()")), S_OK);
  EXPECT_EQ(second->ResizeBrowser(10.5, -3), S_OK);
  EXPECT_EQ(first->ResizeBrowserRect(1, 2, 3, 4), S_OK);
  EXPECT_EQ(second->AddJSHandler(_bstr_t(L"name"), kObject), S_OK);
  EXPECT_EQ(first->RemoveJSHandler(_bstr_t(L"name"), kObject), S_OK);
  EXPECT_THAT(bridge.calls(),
              ElementsAre("ExecuteJS(f(), 1)", "ResizeBrowser(10.5, -3, 2)",
                          "ResizeBrowserRect(1, 2, 3, 4, 1)", "AddJSHandler(name, 16, 2)",
                          "RemoveJSHandler(name, 16, 1)"));
}

TEST_F(Browser, PassesCallsOnWithoutAnInstanceToo) {
  const auto browser = NewBrowser();
  EXPECT_EQ(browser->ExecuteJS(_bstr_t(L"f()")), S_OK);
  EXPECT_EQ(browser->RemoveJSHandler(_bstr_t(L"name"), kObject), S_OK);
  EXPECT_THAT(bridge.calls(), ElementsAre("ExecuteJS(f(), 0)", "RemoveJSHandler(name, 16, 0)"));
}

TEST_F(Browser, KeepsAScriptHandlerBackUntilItIsStarted) {
  const auto browser = NewBrowser();
  EXPECT_EQ(browser->AddJSHandler(_bstr_t(L"name"), kObject), S_OK);
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

TEST_F(Browser, RemovesNoScriptHandlerThatStillWaits) {
  const auto browser = NewBrowser();
  browser->AddJSHandler(_bstr_t(L"name"), kObject);
  browser->RemoveJSHandler(_bstr_t(L"name"), kObject);
  browser->StartBrowser(Value(kParent));
  bridge.ForgetCalls();
  registry->BrowserCreatedNotify(first_window);
  EXPECT_THAT(bridge.calls(), ElementsAre("AddJSHandler(name, 16, 1)"));
}

// The result is upside down, and hosts know it.
TEST_F(Browser, AnswersFalseForAReloadThatHappens) {
  const auto browser = StartedBrowser();
  bridge.ForgetCalls();
  EXPECT_EQ(browser->Refresh(VARIANT_TRUE), S_FALSE);
  EXPECT_EQ(browser->Refresh(VARIANT_FALSE), S_FALSE);
  EXPECT_EQ(browser->Refresh(2), S_FALSE);
  EXPECT_THAT(bridge.calls(), ElementsAre("Refresh(1, 1)", "Refresh(0, 1)", "Refresh(1, 1)"));
  bridge.succeeds = false;
  EXPECT_EQ(browser->Refresh(VARIANT_TRUE), S_OK);
  EXPECT_EQ(NewBrowser()->Refresh(VARIANT_TRUE), S_OK);
}

TEST_F(Browser, KeepsEveryPopupFlag) {
  const auto browser = NewBrowser();
  VARIANT_BOOL popup = 5;
  EXPECT_EQ(browser->get_PopupUserBrowser(&popup), S_OK);
  EXPECT_EQ(popup, VARIANT_FALSE);
  for (const VARIANT_BOOL flag : {VARIANT_TRUE, VARIANT_BOOL{1}, VARIANT_BOOL{-7}}) {
    EXPECT_EQ(browser->put_PopupUserBrowser(flag), S_OK);
    browser->get_PopupUserBrowser(&popup);
    EXPECT_EQ(popup, flag);
  }
  EXPECT_EQ(browser->get_PopupUserBrowser(nullptr), S_OK);
}

TEST_F(Browser, MakesASecondInstanceWhenItIsStartedAgain) {
  const auto browser = StartedBrowser();
  browser->StartBrowser(Value(kParent));
  EXPECT_EQ(WindowOf(browser), Value(second_window));
  EXPECT_THAT(bridge.calls(), ElementsAre("StartBrowser(1280, )", "StartBrowser(1280, )"));
}

TEST_F(Browser, TakesNoOtherBrowsersInstanceWhenItsOwnStartIsRefused) {
  const auto other = StartedBrowser();
  const auto browser = NewBrowser();
  EXPECT_EQ(browser->StartBrowser(0), S_OK);
  EXPECT_EQ(WindowOf(browser), 0);
  // And it does not take the other one down.
  bridge.ForgetCalls();
  const_cast<ComPtr<IKZCEFComBrowser>&>(browser).Reset();
  EXPECT_THAT(bridge.calls(), ElementsAre("DestroyInstance(0)"));
  EXPECT_EQ(WindowOf(other), Value(first_window));
}

TEST_F(Browser, GivesItsInstanceBackInTheEnd) {
  auto browser = StartedBrowser();
  bridge.ForgetCalls();
  browser.Reset();
  EXPECT_THAT(bridge.calls(), ElementsAre("DestroyInstance(1)"));
}

TEST_F(Browser, ServesItsCreatedClassLikeOneOfTheApplication) {
  ComPtr<IKZCEFComBrowser> browser;
  CreateComObject<CKZCEFComBrowser>(nullptr, IID_PPV_ARGS(browser.GetAddressOf()));
  browser->StartBrowser(Value(kParent));
  EXPECT_EQ(WindowOf(browser), Value(first_window));
  ::testing::NiceMock<MockHandler> handler;
  Register(browser, handler);
  EXPECT_CALL(handler, LoadEndNotify(200)).Times(1);
  registry->LoadEndNotify(first_window, 200);
}

// Only the application's browsers are listed, and only listed ones pass their script handlers on.
TEST_F(Browser, IsFoundByItsWindowOnlyWhenTheApplicationMadeIt) {
  ComPtr<IKZCEFComBrowser> browser;
  CreateComObject<CKZCEFComBrowser>(nullptr, IID_PPV_ARGS(browser.GetAddressOf()));
  browser->AddJSHandler(_bstr_t(L"name"), kObject);
  browser->StartBrowser(Value(kParent));
  bridge.ForgetCalls();
  registry->BrowserCreatedNotify(first_window);
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

class BrowserWithoutBridge : public ::testing::Test {
 protected:
  BrowserWithoutBridge() {
    CreateComObject<CKZCEFComBrowser>(nullptr, IID_PPV_ARGS(browser.GetAddressOf()));
  }
  ComPtr<IKZCEFComBrowser> browser;
};

TEST_F(BrowserWithoutBridge, DoesNothing) {
  __int64 window = 77;
  EXPECT_EQ(browser->GetWindowHandle(&window), S_FALSE);
  EXPECT_EQ(window, 77);
  EXPECT_EQ(browser->ExecuteJS(_bstr_t(L"f()")), S_FALSE);
  EXPECT_EQ(browser->RemoveJSHandler(_bstr_t(L"name"), kObject), S_FALSE);
  EXPECT_EQ(browser->ResizeBrowser(1, 2), S_FALSE);
  EXPECT_EQ(browser->ResizeBrowserRect(1, 2, 3, 4), S_FALSE);
  EXPECT_EQ(browser->put_URL(_bstr_t(L"http://a/")), S_FALSE);
  EXPECT_EQ(browser->Refresh(VARIANT_TRUE), S_OK);
  EXPECT_EQ(browser->AddJSHandler(_bstr_t(L"name"), kObject), S_OK);
  EXPECT_EQ(browser->StartBrowser(0x500), S_OK);
}

TEST_F(BrowserWithoutBridge, AnswersAnEmptyUrl) {
  browser->put_URL(_bstr_t(L"http://stored/"));
  BSTR url = nullptr;
  EXPECT_EQ(browser->get_URL(&url), S_OK);
  EXPECT_THAT(url, IsBstr(L""));
  SysFreeString(url);
}

TEST_F(BrowserWithoutBridge, StaysWithoutOneForItsLife) {
  FakeBridge bridge;
  KZCEFCom::Get()->set_bridge(&bridge);
  EXPECT_EQ(browser->StartBrowser(0x500), S_OK);
  EXPECT_EQ(browser->ExecuteJS(nullptr), S_FALSE);
  browser.Reset();
  EXPECT_THAT(bridge.calls(), IsEmpty());
}

}  // namespace
}  // namespace kzcef::testing
