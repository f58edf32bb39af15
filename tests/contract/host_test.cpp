// The application object and the objects that it hands out, in a process that starts no engine; and
// how such a host lets go of the DLL.

#include <windows.h>

#include <comutil.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>

#include "KZCEFComWrapper.h"
#include "late_bound.h"
#include "server_library.h"

namespace contract {
namespace {

using Microsoft::WRL::ComPtr;

class Host : public ::testing::Test {
 protected:
  ComPtr<IKZCEFComBrowser> Browser() {
    ComPtr<IKZCEFComBrowser> browser;
    EXPECT_EQ(application_->GetKzCEFBrowser(nullptr, 0, browser.GetAddressOf()), S_OK);
    return browser;
  }

  const ServerLibrary server_;
  const ComPtr<IKZCEFComApplication2> application_ =
      server_.Create<IKZCEFComApplication2>("KZCEFComApplication");
};

TEST_F(Host, GetsNoTokenForAnyName) {
  VARIANT keys;
  VariantInit(&keys);
  auto* const untouched = reinterpret_cast<IKZCEFComToken*>(0x99);
  for (const wchar_t* name :
       {L"KzxQuillAddinLoaded", L"KZXMEADOW", L"kzxharbor", L"unknown", L""}) {
    IKZCEFComToken* token = untouched;
    EXPECT_EQ(application_->GetToken(_bstr_t(name), keys, &token), S_OK);
    EXPECT_EQ(token, untouched);
  }
  EXPECT_EQ(application_->GetToken(nullptr, keys, nullptr), S_OK);
}

TEST_F(Host, MayExitAnEngineThatWasNeverStarted) {
  EXPECT_EQ(application_->ExitCef(nullptr), S_OK);
  EXPECT_EQ(application_->ExitCef(nullptr), S_OK);
}

TEST_F(Host, HearsOfNoNotificationUnderWay) {
  VARIANT_BOOL processing = 5;
  EXPECT_EQ(application_->IsProcessingNotifications(&processing), S_OK);
  EXPECT_EQ(processing, VARIANT_FALSE);
  EXPECT_EQ(application_->IsProcessingNotifications(nullptr), S_OK);
  for (const VARIANT_BOOL closing : {VARIANT_TRUE, VARIANT_BOOL{3}, VARIANT_FALSE}) {
    EXPECT_EQ(application_->HostClosing(closing), S_OK);
  }
}

TEST_F(Host, GetsNewObjectsWithoutAToken) {
  const auto first = Browser();
  const auto second = Browser();
  ASSERT_TRUE(first && second);
  EXPECT_NE(first.Get(), second.Get());
  ComPtr<IKZCEFComCookieManager> cookies;
  EXPECT_EQ(application_->GetCookieManager(nullptr, 0, cookies.GetAddressOf()), S_OK);
  EXPECT_TRUE(cookies);
  ComPtr<IKZCEFComSettings> settings;
  EXPECT_EQ(application_->GetKzCEFComSettings(nullptr, settings.GetAddressOf()), S_OK);
  EXPECT_TRUE(settings);
}

TEST_F(Host, GetsAnAnswerForMissingOutPointers) {
  EXPECT_EQ(application_->GetKzCEFBrowser(nullptr, 0, nullptr), S_OK);
  EXPECT_EQ(application_->GetCookieManager(nullptr, 0, nullptr), S_OK);
  EXPECT_EQ(application_->GetKzCEFComSettings(nullptr, nullptr), E_POINTER);
}

TEST_F(Host, MayUseABrowserBeforeTheStart) {
  const auto browser = Browser();
  __int64 window = 77;
  EXPECT_EQ(browser->GetWindowHandle(&window), S_FALSE);
  EXPECT_EQ(window, 77);
  EXPECT_EQ(browser->put_URL(_bstr_t(L"http://a/")), S_FALSE);
  _bstr_t url(L"before");
  EXPECT_EQ(browser->get_URL(url.GetAddress()), S_OK);
  EXPECT_EQ(url.length(), 0U);
  EXPECT_EQ(browser->ExecuteJS(_bstr_t(L"f()")), S_FALSE);
  EXPECT_EQ(browser->AddJSHandler(_bstr_t(L"name"), nullptr), S_OK);
  EXPECT_EQ(browser->RemoveJSHandler(_bstr_t(L"name"), nullptr), S_FALSE);
  EXPECT_EQ(browser->ResizeBrowser(10, 20), S_FALSE);
  EXPECT_EQ(browser->ResizeBrowserRect(1, 2, 10, 20), S_FALSE);
  EXPECT_EQ(browser->Refresh(VARIANT_TRUE), S_OK);
  VARIANT_BOOL popup = 5;
  EXPECT_EQ(browser->get_PopupUserBrowser(&popup), S_OK);
  EXPECT_EQ(popup, VARIANT_FALSE);
  EXPECT_EQ(browser->put_PopupUserBrowser(7), S_OK);
  browser->get_PopupUserBrowser(&popup);
  EXPECT_EQ(popup, 7);
}

// Cookie texts in an array, as script engines and compiled hosts pass them.
_variant_t TextArray(std::initializer_list<const wchar_t*> texts) {
  _variant_t array;
  array.vt = VT_ARRAY | VT_BSTR;
  array.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  LONG at = 0;
  for (const wchar_t* text : texts) {
    SafeArrayPutElement(array.parray, &at, _bstr_t(text).GetBSTR());
    ++at;
  }
  return array;
}

TEST_F(Host, FindsAndSetsNoCookiesBeforeTheStart) {
  ComPtr<IKZCEFComCookieManager> cookies;
  ASSERT_EQ(application_->GetCookieManager(nullptr, 0, cookies.GetAddressOf()), S_OK);
  const _bstr_t url(L"http://a/");
  const _variant_t texts = TextArray({L"{\"name\":\"n\",\"value\":\"v\",\"domain\":\"a\"}", L"{}"});
  const auto expect_nothing = [](HRESULT result, const VARIANT& found) {
    EXPECT_EQ(result, S_OK);
    EXPECT_EQ(found.vt, VT_EMPTY);
  };
  VARIANT found;
  found.vt = VT_I4;
  expect_nothing(cookies->GetUrlCookies(url, &found), found);
  found.vt = VT_I4;
  expect_nothing(cookies->GetUrlCookiesSync(url, &found), found);
  found.vt = VT_I4;
  expect_nothing(cookies->GetAllCookiesSync(&found), found);
  VARIANT_BOOL done = VARIANT_TRUE;
  EXPECT_EQ(cookies->SetUrlCookies(url, texts, &done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);

  const Outcome late = Invoke(cookies.Get(), IdOf(cookies.Get(), L"SetUrlCookies"), DISPATCH_METHOD,
                              {_variant_t(url), texts});
  EXPECT_EQ(late.result, S_OK);
  EXPECT_EQ(late.value.vt, VT_BOOL);
  EXPECT_EQ(late.value.boolVal, VARIANT_FALSE);
  const Outcome read = Invoke(cookies.Get(), IdOf(cookies.Get(), L"GetUrlCookiesSync"),
                              DISPATCH_METHOD, {_variant_t(url)});
  expect_nothing(read.result, read.value);
}

TEST_F(Host, StartsNothingBeforeTheStart) {
  const HWND parent =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr, nullptr, nullptr);
  const auto browser = Browser();
  EXPECT_EQ(browser->StartBrowser(reinterpret_cast<__int64>(parent)), S_OK);
  EXPECT_EQ(browser->StartBrowser(0), S_OK);
  EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
  __int64 window = 77;
  EXPECT_EQ(browser->GetWindowHandle(&window), S_FALSE);
  EXPECT_EQ(window, 77);
  DestroyWindow(parent);
}

TEST_F(Host, MayRegisterWhateverItHas) {
  const auto browser = Browser();
  const auto handler = server_.Create<IKZCEFComBrowserHandler>("KZCEFComBrowserHandler");
  EXPECT_EQ(application_->RegisterKzCEFBrowserCallback(nullptr, 1, nullptr, nullptr), S_OK);
  EXPECT_EQ(application_->RegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), nullptr), S_OK);
  EXPECT_EQ(application_->RegisterKzCEFBrowserCallback2(nullptr, 1, application_.Get(),
                                                        application_.Get()),
            S_OK);
  EXPECT_EQ(application_->UnRegisterKzCEFBrowserCallback(nullptr, 1, nullptr, nullptr), S_OK);
  EXPECT_EQ(application_->UnRegisterKzCEFBrowserCallback2(nullptr, 1, application_.Get(),
                                                          application_.Get()),
            S_OK);
  EXPECT_EQ(application_->RegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), handler.Get()),
            S_OK);
  EXPECT_EQ(application_->UnRegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), handler.Get()),
            S_OK);
}

TEST(Unloading, IsPossibleOnceEveryObjectIsReleased) {
  std::optional<ServerLibrary> server(std::in_place);
  {
    const auto application = server->Create<IKZCEFComApplication>("KZCEFComApplication");
    ComPtr<IKZCEFComBrowser> browser;
    application->GetKzCEFBrowser(nullptr, 0, browser.GetAddressOf());
    const auto handler = server->Create<IKZCEFComBrowserHandler>("KZCEFComBrowserHandler");
    application->RegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), handler.Get());
    EXPECT_EQ(server->CanUnloadNow(), S_FALSE);
    application->UnRegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), handler.Get());
    EXPECT_EQ(server->CanUnloadNow(), S_FALSE);
  }
  EXPECT_EQ(server->CanUnloadNow(), S_OK);
  server.reset();
  EXPECT_EQ(GetModuleHandleW(L"KZCEFComWrapper.dll"), nullptr);
}

TEST(Unloading, IsHeldUpByARegisteredHandlerOfTheServersOwn) {
  const ServerLibrary server;
  {
    const auto application = server.Create<IKZCEFComApplication>("KZCEFComApplication");
    ComPtr<IKZCEFComBrowser> browser;
    application->GetKzCEFBrowser(nullptr, 0, browser.GetAddressOf());
    const auto handler = server.Create<IKZCEFComBrowserHandler>("KZCEFComBrowserHandler");
    application->RegisterKzCEFBrowserCallback(nullptr, 1, browser.Get(), handler.Get());
  }
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
}

TEST(Unloading, CanBeFollowedByLoadingAgain) {
  for (int round = 0; round < 3; ++round) {
    {
      const ServerLibrary server;
      const auto settings = server.Create<IKZCEFComSettings>("KZCEFComSettings");
      ASSERT_TRUE(settings);
      long port = 0;
      EXPECT_EQ(settings->get_HubPort(&port), S_OK);
      EXPECT_EQ(port, -1);
    }
    ASSERT_EQ(GetModuleHandleW(L"KZCEFComWrapper.dll"), nullptr) << round;
  }
}

}  // namespace
}  // namespace contract
