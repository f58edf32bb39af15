// Which handlers a notification reaches, and in which order.

#include "automation_test.h"

#include <array>

#include "automation/browser_handler.h"
#include "foreign_browser.h"

namespace kzcef::testing {
namespace {

using ::testing::_;
using ::testing::DoAll;
using ::testing::ElementsAre;
using ::testing::InSequence;
using ::testing::NiceMock;
using ::testing::Pointee;
using ::testing::Return;
using ::testing::SetArgPointee;
using ::testing::StrictMock;

class Walk : public AutomationTest {
 protected:
  // One array, so that each handler's pointer is greater than the one before.
  std::array<NiceMock<MockHandler>, 3> handlers;
};

TEST_F(Walk, ReachesOnlyTheHandlersOfTheBrowser) {
  StrictMock<MockHandler> stranger;
  const auto first = StartedBrowser();
  const auto second = StartedBrowser();
  Register(first, handlers[0]);
  Register(second, stranger);
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).Times(1);
  registry->LoadEndNotify(first_window, 200);
}

TEST_F(Walk, ReachesNobodyForAnUnknownWindow) {
  StrictMock<MockHandler> handler;
  const auto browser = StartedBrowser();
  Register(browser, handler);
  VARIANT_BOOL cancel = VARIANT_TRUE;
  registry->BeforeBrowseNotify(second_window, L"", VARIANT_FALSE, VARIANT_FALSE, &cancel);
  EXPECT_EQ(cancel, VARIANT_TRUE);
}

TEST_F(Walk, GoesByAscendingPointersWhateverTheOrderOfRegistration) {
  const auto browser = StartedBrowser();
  for (const int i : {2, 0, 1}) {
    Register(browser, handlers[static_cast<std::size_t>(i)]);
  }
  const InSequence in_sequence;
  for (auto& handler : handlers) {
    EXPECT_CALL(handler, SetOwnerWndHandle(Value(first_window)));
    EXPECT_CALL(handler, LoadEndNotify(200));
  }
  registry->LoadEndNotify(first_window, 200);
}

TEST_F(Walk, LetsTheLastHandlersOutValuesWin) {
  const auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  Register(browser, handlers[1]);
  EXPECT_CALL(handlers[0], BeforeContextMenuNotify(Pointee(VARIANT_FALSE)))
      .WillOnce(DoAll(SetArgPointee<0>(VARIANT_TRUE), Return(S_OK)));
  // Sees what the first one wrote.
  EXPECT_CALL(handlers[1], BeforeContextMenuNotify(Pointee(VARIANT_TRUE)))
      .WillOnce(DoAll(SetArgPointee<0>(VARIANT_BOOL{5}), Return(S_OK)));
  VARIANT_BOOL clear = VARIANT_FALSE;
  registry->BeforeContextMenuNotify(first_window, &clear);
  EXPECT_EQ(clear, 5);
}

TEST_F(Walk, PassesOverAHandlerWithoutTheNewerInterfaces) {
  StrictMock<MockHandler> oldest(1);
  const auto browser = StartedBrowser();
  Register(browser, oldest);
  VARIANT_BOOL clear = 3;
  VARIANT_BOOL handled = 4;
  registry->BeforeContextMenuNotify(first_window, &clear);
  registry->KeyStrokeNotify(first_window, VK_F1, &handled);
  registry->DownloadUpdatedNotify(first_window, L"", 0, 0);
  EXPECT_EQ(clear, 3);
  EXPECT_EQ(handled, 4);
  EXPECT_CALL(oldest, SetOwnerWndHandle(_));
  EXPECT_CALL(oldest, EscapeKeyNotify());
  registry->EscapeKeyNotify(first_window);
}

TEST_F(Walk, ReachesAHandlerOfTheSecondInterfaceUpToItsOwn) {
  StrictMock<MockHandler> middle(2);
  const auto browser = StartedBrowser();
  Register(browser, middle);
  VARIANT_BOOL flag = VARIANT_FALSE;
  registry->KeyStrokeNotify(first_window, VK_F1, &flag);
  EXPECT_CALL(middle, SetOwnerWndHandle(_));
  EXPECT_CALL(middle, BeforeContextMenuNotify(_));
  registry->BeforeContextMenuNotify(first_window, &flag);
}

TEST_F(Walk, LeavesNoReferenceOnTheHandlers) {
  const auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  const ULONG before = handlers[0].references();
  registry->LoadEndNotify(first_window, 200);
  registry->LoadEndNotify(second_window, 200);
  EXPECT_EQ(handlers[0].references(), before);
}

// --- Popup ---

TEST_F(Walk, PresetsPopupFromTheBrowsersFlag) {
  const auto browser = StartedBrowser();
  browser->put_PopupUserBrowser(VARIANT_TRUE);
  Register(browser, handlers[0]);
  EXPECT_CALL(handlers[0], BeforePopupNotify(_, Pointee(VARIANT_TRUE), _));
  VARIANT_BOOL popup = VARIANT_FALSE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(first_window, L"", &popup, &proceed);
  EXPECT_EQ(popup, VARIANT_TRUE);
}

TEST_F(Walk, OverwritesPopupWithEveryBrowserExaminedAfterTheMatch) {
  const auto a = StartedBrowser();
  const auto b = StartedBrowser();
  a->put_PopupUserBrowser(VARIANT_TRUE);
  b->put_PopupUserBrowser(VARIANT_FALSE);
  Register(a, handlers[0]);
  Register(b, handlers[1]);
  EXPECT_CALL(handlers[0], BeforePopupNotify(_, Pointee(VARIANT_TRUE), _))
      .WillOnce(DoAll(SetArgPointee<1>(VARIANT_TRUE), Return(S_OK)));
  VARIANT_BOOL popup = VARIANT_TRUE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(first_window, L"", &popup, &proceed);
  EXPECT_EQ(popup, VARIANT_FALSE);
}

TEST_F(Walk, KeepsWhatTheHandlerWroteToPopupWhenItsBrowserIsTheLast) {
  const auto a = StartedBrowser();
  const auto b = StartedBrowser();
  Register(b, handlers[0]);
  Register(a, handlers[1]);
  EXPECT_CALL(handlers[1], BeforePopupNotify(_, Pointee(VARIANT_FALSE), _))
      .WillOnce(DoAll(SetArgPointee<1>(VARIANT_TRUE), Return(S_OK)));
  VARIANT_BOOL popup = VARIANT_FALSE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(first_window, L"", &popup, &proceed);
  EXPECT_EQ(popup, VARIANT_TRUE);
}

TEST_F(Walk, PresetsPopupFromTheLastBrowserWhenNoneMatches) {
  const auto a = StartedBrowser();
  const auto b = StartedBrowser();
  a->put_PopupUserBrowser(VARIANT_FALSE);
  b->put_PopupUserBrowser(9);
  Register(a, handlers[0]);
  Register(b, handlers[1]);
  VARIANT_BOOL popup = VARIANT_FALSE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(FakeBridge::WindowOf(3), L"", &popup, &proceed);
  EXPECT_EQ(popup, 9);
  EXPECT_EQ(proceed, VARIANT_TRUE);
}

TEST_F(Walk, KeepsPopupWithoutAnyHandler) {
  const auto browser = StartedBrowser();
  browser->put_PopupUserBrowser(VARIANT_FALSE);
  VARIANT_BOOL popup = VARIANT_TRUE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(first_window, L"", &popup, &proceed);
  EXPECT_EQ(popup, VARIANT_TRUE);
}

TEST_F(Walk, KeepsEveryOutValueForTheLibrarysOwnHandlerObject) {
  ComPtr<IKZCEFComBrowserHandler> own;
  CreateComObject<CKZCEFComBrowserHandler>(nullptr, IID_PPV_ARGS(own.GetAddressOf()));
  const auto browser = StartedBrowser();
  browser->put_PopupUserBrowser(VARIANT_TRUE);
  Register(browser, *own.Get());

  VARIANT_BOOL popup = VARIANT_FALSE;
  VARIANT_BOOL proceed = 3;
  registry->BeforePopupNotify(first_window, L"", &popup, &proceed);
  // The flag of the last browser examined.
  EXPECT_EQ(popup, VARIANT_TRUE);
  EXPECT_EQ(proceed, 3);

  VARIANT_BOOL flag = 5;
  registry->BeforeBrowseNotify(first_window, L"", VARIANT_FALSE, VARIANT_FALSE, &flag);
  registry->BeforeContextMenuNotify(first_window, &flag);
  registry->KeyStrokeNotify(first_window, 1, &flag);
  _bstr_t text(L"as it was");
  registry->BeforeDownloadNotify(first_window, &text.GetBSTR(), &flag, &flag);
  registry->ResourceResponseNotify(first_window, &text.GetBSTR(), &flag, 0);
  registry->ResourceRedirectNotify(first_window, L"", &text.GetBSTR(), 301);
  EXPECT_EQ(flag, 5);
  EXPECT_THAT(text.GetBSTR(), IsBstr(L"as it was"));
}

// --- Changes during the walk ---

TEST_F(Walk, GoesOnWhenAHandlerUnregistersItself) {
  const auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  Register(browser, handlers[1]);
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).WillOnce([&](LONG) {
    // Takes the browser's other handlers along, as that is what unregistering means.
    Unregister(browser, handlers[0]);
    return S_OK;
  });
  EXPECT_CALL(handlers[1], LoadEndNotify(200)).Times(1);
  registry->LoadEndNotify(first_window, 200);
  EXPECT_EQ(handlers[0].references(), 0U);
  EXPECT_EQ(handlers[1].references(), 0U);
  registry->LoadEndNotify(first_window, 200);
}

TEST_F(Walk, KeepsAnUnregisteredHandlerAliveUntilItHasEnded) {
  const auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).WillOnce([&](LONG) {
    Unregister(browser, handlers[0]);
    EXPECT_GE(handlers[0].references(), 1U);
    return S_OK;
  });
  registry->LoadEndNotify(first_window, 200);
  EXPECT_EQ(handlers[0].references(), 0U);
}

TEST_F(Walk, DoesNotReachAHandlerThatWasRegisteredMeanwhile) {
  const auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  EXPECT_CALL(handlers[0], LoadEndNotify(_)).WillRepeatedly([&](LONG) {
    Register(browser, handlers[1]);
    return S_OK;
  });
  EXPECT_CALL(handlers[1], LoadEndNotify(200)).Times(0);
  registry->LoadEndNotify(first_window, 200);
  EXPECT_CALL(handlers[1], LoadEndNotify(404)).Times(1);
  registry->LoadEndNotify(first_window, 404);
}

TEST_F(Walk, DoesNotCallABrowserThatIsGone) {
  StrictMock<MockHandler> orphan;
  Register(StartedBrowser(), orphan);
  registry->LoadEndNotify(first_window, 200);
  // Nor does the orphan get what another browser is told.
  const auto other = StartedBrowser();
  registry->LoadEndNotify(second_window, 200);
}

TEST_F(Walk, GoesOnWhenAHandlerReleasesABrowserThatIsStillToBeExamined) {
  const auto first = StartedBrowser();
  auto second = StartedBrowser();
  Register(first, handlers[0]);
  Register(second, handlers[1]);
  Register(first, handlers[2]);
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).WillOnce([&](LONG) {
    second.Reset();
    return S_OK;
  });
  EXPECT_CALL(handlers[1], LoadEndNotify(_)).Times(0);
  EXPECT_CALL(handlers[2], LoadEndNotify(200)).Times(1);
  registry->LoadEndNotify(first_window, 200);
}

TEST_F(Walk, GoesOnWhenAHandlerReleasesItsOwnBrowser) {
  auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  Register(browser, handlers[1]);
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).WillOnce([&](LONG) {
    browser.Reset();
    return S_OK;
  });
  EXPECT_CALL(handlers[1], LoadEndNotify(_)).Times(0);
  registry->LoadEndNotify(first_window, 200);
}

TEST_F(Walk, MayRaiseAnotherNotificationFromWithin) {
  const auto browser = StartedBrowser();
  Register(browser, handlers[0]);
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).WillOnce([&](LONG) {
    registry->EscapeKeyNotify(first_window);
    return S_OK;
  });
  EXPECT_CALL(handlers[0], EscapeKeyNotify()).Times(1);
  registry->LoadEndNotify(first_window, 200);
}

// --- Script handlers that wait for the browser ---

class PendingScriptHandlers : public Walk {
 protected:
  // Before the start, so that they have to wait.
  ComPtr<IKZCEFComBrowser> BrowserWithPendingHandlers() {
    auto browser = NewBrowser();
    for (const auto& [name, object] : {std::pair(L"beta", 2), std::pair(L"Beta", 3),
                                       std::pair(L"alpha", 1), std::pair(L"beta", 4)}) {
      EXPECT_EQ(browser->AddJSHandler(_bstr_t(name), Object(object)), S_OK);
    }
    browser->StartBrowser(Value(kParent));
    bridge.ForgetCalls();
    return browser;
  }
  // Never called, only passed on.
  static IDispatch* Object(int number) {
    return reinterpret_cast<IDispatch*>(static_cast<std::uintptr_t>(number));
  }
  // In ordinal order of the names, and each with the first object that it was given.
  const ::testing::Matcher<std::vector<std::string>> all_in_order =
      ElementsAre("AddJSHandler(Beta, 3, 1)",
                  "AddJSHandler(alpha, 1, 1)",
                  "AddJSHandler(beta, 2, 1)");
};

TEST_F(PendingScriptHandlers, ArePassedOnWhenTheBrowserExists) {
  const auto browser = BrowserWithPendingHandlers();
  registry->BrowserCreatedNotify(first_window);
  EXPECT_THAT(bridge.calls(), all_in_order);
}

TEST_F(PendingScriptHandlers, ArePassedOnAgainAtEveryAddressChange) {
  const auto browser = BrowserWithPendingHandlers();
  registry->BrowserCreatedNotify(first_window);
  for (int i = 0; i < 2; ++i) {
    bridge.ForgetCalls();
    registry->AddressChangeNotify(first_window, L"http://a/");
    EXPECT_THAT(bridge.calls(), all_in_order);
  }
}

TEST_F(PendingScriptHandlers, ArePassedOnBeforeTheHandlerHears) {
  const auto browser = BrowserWithPendingHandlers();
  Register(browser, handlers[0]);
  EXPECT_CALL(handlers[0], BrowserCreatedNotify()).WillOnce([&] {
    EXPECT_THAT(bridge.calls(), all_in_order);
    return S_OK;
  });
  registry->BrowserCreatedNotify(first_window);
}

TEST_F(PendingScriptHandlers, ArePassedOnForTheirOwnWindowOnly) {
  const auto browser = BrowserWithPendingHandlers();
  const auto other = StartedBrowser();
  bridge.ForgetCalls();
  registry->AddressChangeNotify(second_window, L"http://a/");
  registry->LoadEndNotify(first_window, 200);
  EXPECT_THAT(bridge.calls(), ElementsAre());
}

TEST_F(PendingScriptHandlers, AreForgottenWithTheirBrowser) {
  auto browser = BrowserWithPendingHandlers();
  browser.Reset();
  bridge.ForgetCalls();
  registry->AddressChangeNotify(first_window, L"http://a/");
  EXPECT_THAT(bridge.calls(), ElementsAre());
}

TEST_F(PendingScriptHandlers, MayRegisterAHandlerThatThisWalkDoesNotReach) {
  StrictMock<MockHandler> late;
  const auto browser = BrowserWithPendingHandlers();
  bridge.on_script_handler = [&] { Register(browser, late); };
  registry->BrowserCreatedNotify(first_window);
  registry->AddressChangeNotify(second_window, L"http://a/");
  EXPECT_CALL(late, SetOwnerWndHandle(_));
  EXPECT_CALL(late, AddressChangeNotify(_));
  registry->AddressChangeNotify(first_window, L"http://a/");
}

TEST_F(PendingScriptHandlers, MayReleaseTheirBrowser) {
  auto browser = BrowserWithPendingHandlers();
  bridge.on_script_handler = [&] { browser.Reset(); };
  registry->BrowserCreatedNotify(first_window);
  bridge.ForgetCalls();
  registry->AddressChangeNotify(first_window, L"http://a/");
  EXPECT_THAT(bridge.calls(), ElementsAre());
}

TEST_F(PendingScriptHandlers, ArePassedOnThoughABrowserBeforeThemCouldNotBeMade) {
  registry->ListBrowser(nullptr);
  const auto browser = BrowserWithPendingHandlers();
  registry->BrowserCreatedNotify(first_window);
  EXPECT_THAT(bridge.calls(), all_in_order);
}

// --- browser objects of others ---

class ForeignBrowserWalk : public Walk {
 protected:
  void Register(IKZCEFComBrowserHandler& handler) {
    EXPECT_EQ(application->RegisterKzCEFBrowserCallback(nullptr, 7, &foreign, &handler), S_OK);
  }

  ForeignBrowser foreign{reinterpret_cast<HWND>(0x700)};
  const HWND window = reinterpret_cast<HWND>(0x700);
};

TEST_F(ForeignBrowserWalk, ReachesTheHandlersOfItsWindowOnly) {
  Register(handlers[0]);
  EXPECT_CALL(handlers[0], SetOwnerWndHandle(Value(window)));
  EXPECT_CALL(handlers[0], LoadEndNotify(200)).Times(1);
  registry->LoadEndNotify(window, 200);
  registry->LoadEndNotify(first_window, 200);
  EXPECT_EQ(foreign.references, 0);
}

TEST_F(ForeignBrowserWalk, PresetsPopupFromItsFlag) {
  foreign.popup = VARIANT_TRUE;
  Register(handlers[0]);
  EXPECT_CALL(handlers[0], BeforePopupNotify(_, Pointee(VARIANT_TRUE), _));
  VARIANT_BOOL popup = VARIANT_FALSE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(window, L"", &popup, &proceed);
}

TEST_F(ForeignBrowserWalk, PassesOverWhatIsABrowserNoMore) {
  StrictMock<MockHandler> handler;
  Register(handler);
  foreign.is_browser = false;
  registry->LoadEndNotify(window, 200);
}

}  // namespace
}  // namespace kzcef::testing
