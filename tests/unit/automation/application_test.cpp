// The application object: host kinds, the start and end of the engine, and the objects that it
// hands out, with and without a bridge.

#include "automation/application.h"

#include <stdexcept>

#include "automation/settings.h"
#include "automation_test.h"
#include "bridge/init_cef_runtime.h"
#include "bridge/kz_cef_bridge_impl.h"
#include "com/module.h"
#include "recording_cef/recording_cef.h"
#include "utils/process_settings.h"

namespace kzcef::testing {
namespace {

using ::testing::NiceMock;

// The application object of a process in which nothing was started.
class Application : public ::testing::Test {
 protected:
  Application() {
    CreateComObject<CKZCEFComApplication>(nullptr, IID_PPV_ARGS(application.GetAddressOf()));
  }

  HRESULT GetToken(const wchar_t* key) {
    VARIANT keys;
    VariantInit(&keys);
    return application->GetToken(_bstr_t(key), keys, &token_);
  }

  ComPtr<IKZCEFComSettings> Settings() {
    ComPtr<IKZCEFComSettings> settings;
    EXPECT_EQ(application->GetKzCEFComSettings(nullptr, settings.GetAddressOf()), S_OK);
    return settings;
  }

  recording_cef::RecordingCef& cef = recording_cef::RecordingCef::Get();
  ComPtr<IKZCEFComApplication2> application;
  IKZCEFComToken* token_ = reinterpret_cast<IKZCEFComToken*>(0x99);
};

TEST_F(Application, TakesAHostKindInTheLetterCaseGiven) {
  EXPECT_EQ(GetToken(L"kzxharbor"), S_OK);
  EXPECT_EQ(HostKind(), L"kzxharbor");
  EXPECT_EQ(GetToken(L"KZXMEADOW"), S_OK);
  EXPECT_EQ(HostKind(), L"KZXMEADOW");
  EXPECT_EQ(GetToken(L"KzxQuillAddinLoaded"), S_OK);
  EXPECT_EQ(HostKind(), L"KzxQuillAddinLoaded");
}

TEST_F(Application, IgnoresAnUnknownHostKind) {
  GetToken(L"KzxMeadow");
  for (const wchar_t* unknown : {L"", L"KzxMeadow ", L"Kzx", L"KzxMeadowX"}) {
    EXPECT_EQ(GetToken(unknown), S_OK);
    EXPECT_EQ(HostKind(), L"KzxMeadow");
  }
  VARIANT keys;
  VariantInit(&keys);
  EXPECT_EQ(application->GetToken(nullptr, keys, nullptr), S_OK);
  EXPECT_EQ(HostKind(), L"KzxMeadow");
}

TEST_F(Application, NeverHandsOutAToken) {
  GetToken(L"KzxMeadow");
  EXPECT_EQ(token_, reinterpret_cast<IKZCEFComToken*>(0x99));
  GetToken(L"unknown");
  EXPECT_EQ(token_, reinterpret_cast<IKZCEFComToken*>(0x99));
}

TEST_F(Application, MakesNewSettingsEachTime) {
  const auto first = Settings();
  const auto second = Settings();
  ASSERT_TRUE(first && second);
  EXPECT_NE(first.Get(), second.Get());
  long port = 0;
  first->put_HubPort(80);
  second->get_HubPort(&port);
  EXPECT_EQ(port, -1);
  EXPECT_EQ(application->GetKzCEFComSettings(nullptr, nullptr), E_POINTER);
}

TEST_F(Application, StartsTheEngineWithTheSettings) {
  const auto settings = Settings();
  settings->put_UserAgent(_bstr_t(L"agent"));
  EXPECT_EQ(application->InitCef(nullptr, settings.Get()), S_OK);
  ASSERT_EQ(cef.initializations.size(), 1U);
  EXPECT_EQ(CefString(&cef.initializations[0].settings.user_agent).ToWString(), L"agent");
  EXPECT_NE(KZCEFCom::Get()->bridge(), nullptr);
}

TEST_F(Application, StartsTheEngineOncePerProcess) {
  application->InitCef(nullptr, Settings().Get());
  ComPtr<IKZCEFComApplication2> another;
  CreateComObject<CKZCEFComApplication>(nullptr, IID_PPV_ARGS(another.GetAddressOf()));
  another->InitCef(nullptr, Settings().Get());
  EXPECT_EQ(cef.initializations.size(), 1U);
}

TEST_F(Application, DoesNotTryAFailedStartAgain) {
  cef.initialize_result = false;
  EXPECT_EQ(application->InitCef(nullptr, Settings().Get()), S_OK);
  EXPECT_TRUE(KZCEFCom::Get()->started());
  EXPECT_EQ(KZCEFCom::Get()->bridge(), nullptr);
  cef.initialize_result = true;
  EXPECT_EQ(application->InitCef(nullptr, Settings().Get()), S_OK);
  EXPECT_EQ(cef.initializations.size(), 1U);
  EXPECT_EQ(KZCEFCom::Get()->bridge(), nullptr);
}

TEST_F(Application, LeavesNobodyElseASecondStart) {
  cef.initialize_result = false;
  EXPECT_EQ(InitCefRuntime(nullptr, Settings().Get()), nullptr);
  cef.initialize_result = true;
  EXPECT_EQ(InitCefRuntime(nullptr, Settings().Get()), nullptr);
  EXPECT_EQ(cef.initializations.size(), 1U);
}

TEST_F(Application, TakesMissingSettingsForAFailedStart) {
  EXPECT_EQ(application->InitCef(nullptr, nullptr), S_OK);
  EXPECT_EQ(application->InitCef(nullptr, Settings().Get()), S_OK);
  EXPECT_EQ(cef.initializations.size(), 0U);
}

TEST_F(Application, HoldsNoExceptionOfTheStartBackAsOne) {
  cef.on_initialize = [] { throw std::runtime_error("inside"); };
  EXPECT_EQ(application->InitCef(nullptr, Settings().Get()), S_OK);
  EXPECT_EQ(KZCEFCom::Get()->bridge(), nullptr);
}

TEST_F(Application, ExitsWithoutAStart) {
  EXPECT_EQ(application->ExitCef(nullptr), S_OK);
  EXPECT_EQ(cef.shutdown_count, 0);
}

TEST_F(Application, ShutsTheEngineDownForGood) {
  application->InitCef(nullptr, Settings().Get());
  EXPECT_EQ(application->ExitCef(nullptr), S_OK);
  EXPECT_EQ(cef.shutdown_count, 1);
  EXPECT_EQ(application->InitCef(nullptr, Settings().Get()), S_OK);
  EXPECT_EQ(cef.initializations.size(), 1U);
  EXPECT_NE(KZCEFCom::Get()->bridge(), nullptr);
}

class ApplicationWithBridge : public AutomationTest {};

TEST_F(ApplicationWithBridge, ReportsAFailedShutDown) {
  bridge.on_shutdown = [] { return false; };
  EXPECT_EQ(application->ExitCef(nullptr), S_FALSE);
  bridge.on_shutdown = []() -> bool { throw std::runtime_error("inside"); };
  EXPECT_EQ(application->ExitCef(nullptr), S_FALSE);
  bridge.on_shutdown = []() -> bool { throw 7; };
  EXPECT_EQ(application->ExitCef(nullptr), S_FALSE);
  bridge.on_shutdown = [] { return true; };
  EXPECT_EQ(application->ExitCef(nullptr), S_OK);
  EXPECT_EQ(registry->bridge(), &bridge);
}

TEST_F(ApplicationWithBridge, TakesEveryValueButFalseForClosing) {
  for (const VARIANT_BOOL closing : {VARIANT_TRUE, VARIANT_BOOL{1}, VARIANT_BOOL{2}}) {
    EXPECT_EQ(application->HostClosing(closing), S_OK);
    EXPECT_TRUE(registry->IsHostClosing());
    EXPECT_EQ(application->HostClosing(VARIANT_FALSE), S_OK);
    EXPECT_FALSE(registry->IsHostClosing());
  }
}

TEST_F(ApplicationWithBridge, TellsWhetherANotificationIsUnderWay) {
  VARIANT_BOOL processing = 5;
  EXPECT_EQ(application->IsProcessingNotifications(&processing), S_OK);
  EXPECT_EQ(processing, VARIANT_FALSE);
  registry->ExchangeProcessing(true);
  EXPECT_EQ(application->IsProcessingNotifications(&processing), S_OK);
  EXPECT_EQ(processing, VARIANT_TRUE);
  registry->ExchangeProcessing(false);
  application->IsProcessingNotifications(&processing);
  EXPECT_EQ(processing, VARIANT_FALSE);
}

TEST_F(ApplicationWithBridge, TellsOfANotificationThoughAnotherThreadsHasEnded) {
  VARIANT_BOOL processing = VARIANT_FALSE;
  EXPECT_FALSE(registry->ExchangeProcessing(true));
  EXPECT_TRUE(registry->ExchangeProcessing(true));
  EXPECT_TRUE(registry->ExchangeProcessing(false));
  application->IsProcessingNotifications(&processing);
  EXPECT_EQ(processing, VARIANT_TRUE);
  EXPECT_TRUE(registry->ExchangeProcessing(false));
  application->IsProcessingNotifications(&processing);
  EXPECT_EQ(processing, VARIANT_FALSE);
}

TEST_F(ApplicationWithBridge, SurvivesMissingOutPointers) {
  EXPECT_EQ(application->IsProcessingNotifications(nullptr), S_OK);
  EXPECT_EQ(application->GetKzCEFBrowser(nullptr, 0, nullptr), S_OK);
  EXPECT_EQ(application->GetCookieManager(nullptr, 0, nullptr), S_OK);
}

TEST_F(ApplicationWithBridge, CountsEveryLiveObject) {
  const long before = ModuleLock::Count();
  {
    const auto browser = StartedBrowser();
    NiceMock<MockHandler> handler;
    Register(browser, handler);
    ComPtr<IKZCEFComCookieManager> cookies;
    EXPECT_EQ(application->GetCookieManager(nullptr, 0, cookies.GetAddressOf()), S_OK);
    ComPtr<IKZCEFComSettings> settings;
    application->GetKzCEFComSettings(nullptr, settings.GetAddressOf());
    EXPECT_EQ(ModuleLock::Count(), before + 3);
    Unregister(browser, handler);
  }
  EXPECT_EQ(ModuleLock::Count(), before);
}

TEST(RegistryObject, IsMadeOnFirstUseAndPublishesTheDispatchers) {
  EXPECT_EQ(KZCEFCom::Existing(), nullptr);
  EXPECT_EQ(CurrentHostNotifications(), nullptr);
  const auto made = KZCEFCom::Get();
  EXPECT_EQ(KZCEFCom::Existing(), made);
  EXPECT_EQ(KZCEFCom::Get(), made);
  EXPECT_EQ(CurrentHostNotifications(), made);
}

}  // namespace
}  // namespace kzcef::testing
