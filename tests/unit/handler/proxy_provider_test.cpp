// Credentials from the provider that the kind of host comes with.
#include <comdef.h>
#include <gmock/gmock.h>
#include <windows.h>

#include <memory>
#include <new>
#include <string>
#include <utility>

#include "proxy_provider_fixture.h"

namespace kzcef {
namespace {

TEST_F(ProxyProviderTest, IsChosenByTheKindOfHostMeadow) {
  ExpectAsked(L"KzxMeadow", kMeadow);
}

TEST_F(ProxyProviderTest, IsChosenByTheKindOfHostQuill) {
  ExpectAsked(L"KzxQuillAddinLoaded", kQuill);
}

TEST_F(ProxyProviderTest, IsChosenByTheKindOfHostHarbor) {
  ExpectAsked(L"KzxHarbor", kHarbor);
}

TEST_F(ProxyProviderTest, IsChosenInAnyLetterCase) {
  ExpectAsked(L"kZXMEADOW", kMeadow);
}

TEST_F(ProxyProviderTest, IsTheLastOneForAnyOtherKind) {
  ExpectAsked(L"", kHarbor);
}

TEST_F(ProxyProviderTest, IsTheOneOfTheKindAtTheTimeOfTheCall) {
  SetHostKind(L"KzxQuillAddinLoaded");
  const CefRefPtr<CefTask> task = new KzAsyncProxyHandler(AuthAnswer(callback_));
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  provider->result = Text(LR"({"username":"u","password":"p"})");
  task->Execute();
  ExpectContinued(L"u", L"p");
}

TEST_F(ProxyProviderTest, IsCalledByNameWithoutArguments) {
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  provider->result = Text(LR"({"username":"u","password":"p"})");
  Run();
  EXPECT_EQ(provider->asked_name, L"GetProxyCredential");
  EXPECT_EQ(provider->naming_locale, 0x0800u);
  EXPECT_EQ(provider->calling_locale, 0x0800u);
  EXPECT_EQ(provider->called_id, 7);
  EXPECT_EQ(provider->flags, DISPATCH_METHOD);
  EXPECT_EQ(provider->argument_count, 0u);
  EXPECT_TRUE(provider->has_null_iids);
  EXPECT_EQ(provider->live, 0);
}

TEST_F(ProxyProviderTest, TellsTextsAsTheyAreWritten) {
  Answer(Text(LR"({"password":"p\u00E4:{},'","other":"x","username":"DOM\us"er"})"));
  ExpectContinued(LR"(DOM\us"er)", LR"(p\u00E4:{},')");
}

TEST_F(ProxyProviderTest, TellsTextsWithoutTheBlanksAndQuotesAtTheirEnds) {
  Answer(Text(LR"({"username":" u ","password":"" p ""})"));
  ExpectContinued(L"u", L"p");
}

TEST_F(ProxyProviderTest, TellsEmptyTexts) {
  Answer(Text(LR"({"username":"","password":""})"));
  ExpectContinued(L"", L"");
}

TEST_F(ProxyProviderTest, TellsTextsOfAnyLength) {
  const std::wstring username(1 << 20, L'u');
  const std::wstring password(1 << 20, L'p');
  Answer(Text(L"{\"username\":\"" + username + L"\",\"password\":\"" + password + L"\"}"));
  ExpectContinued(username, password);
}

TEST_F(ProxyProviderTest, MayTellItsTextByReference) {
  const _bstr_t text(LR"({"username":"u","password":"p"})");
  BSTR referred = text;
  Answer([&](VARIANT* result, EXCEPINFO*) {
    V_VT(result) = VT_BSTR | VT_BYREF;
    V_BSTRREF(result) = &referred;
  });
  ExpectContinued(L"u", L"p");
  // It is the provider's.
  EXPECT_EQ(ViewOf(referred), LR"({"username":"u","password":"p"})");
}

TEST_F(ProxyProviderTest, IsLetGoOfBeforeTheRequestIsCancelled) {
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  callback_->on_answer = [&] { EXPECT_EQ(provider->live, 0); };
  Run();
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsNoPasswordCancels) {
  Answer(Text(LR"({"username":"u"})"));
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsNoUserNameCancels) {
  Answer(Text(LR"({"password":"p"})"));
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsOtherNamesCancels) {
  Answer(Text(LR"({"Username":"u","Password":"p"})"));
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsAnEmptyObjectCancels) {
  Answer(Text(L"{}"));
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsAnEmptyTextCancels) {
  Answer(Text(L""));
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsANullTextCancels) {
  Answer([](VARIANT* result, EXCEPINFO*) {
    V_VT(result) = VT_BSTR;
    V_BSTR(result) = nullptr;
  });
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsNothingCancels) {
  Answer([](VARIANT*, EXCEPINFO*) {});
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsANumberCancels) {
  Answer([](VARIANT* result, EXCEPINFO*) {
    V_VT(result) = VT_I4;
    V_I4(result) = 5;
  });
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatTellsAnArrayCancels) {
  Answer([](VARIANT* result, EXCEPINFO*) {
    V_VT(result) = VT_ARRAY | VT_BSTR;
    V_ARRAY(result) = SafeArrayCreateVector(VT_BSTR, 0, 1);
  });
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatIsNotThereCancels) {
  SetHostKind(L"KzxMeadow");
  Run();
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatIsNoAutomationObjectCancels) {
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  provider->has_dispatch = false;
  Run();
  EXPECT_EQ(provider->calls, 0);
  EXPECT_EQ(provider->live, 0);
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatDoesNotKnowTheNameCancels) {
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  provider->naming = DISP_E_UNKNOWNNAME;
  Run();
  EXPECT_EQ(provider->calls, 0);
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatFailsCancelsWhateverItTells) {
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  provider->calling = E_FAIL;
  provider->result = Text(LR"({"username":"u","password":"p"})");
  Run();
  EXPECT_EQ(provider->calls, 1);
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatRaisesAnExceptionCancels) {
  SetHostKind(L"KzxMeadow");
  RegisteredProvider provider(kMeadow);
  provider->calling = DISP_E_EXCEPTION;
  provider->result = [](VARIANT*, EXCEPINFO* exception) {
    exception->bstrSource = SysAllocString(L"source");
    exception->bstrDescription = SysAllocString(L"description");
    exception->bstrHelpFile = SysAllocString(L"help");
  };
  Run();
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatThrowsCancels) {
  Answer([](VARIANT*, EXCEPINFO*) { throw std::bad_alloc(); });
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, ThatThrowsAnAutomationErrorCancels) {
  Answer([](VARIANT*, EXCEPINFO*) { _com_issue_error(E_FAIL); });
  ExpectCancelled();
}

TEST_F(ProxyProviderTest, IsAskedOnlyOnce) {
  SetHostKind(L"KzxMeadow");
  const CefRefPtr<CefTask> task = new KzAsyncProxyHandler(AuthAnswer(callback_));
  task->Execute();
  // The answer is given while CEF may still hold the task.
  ExpectCancelled();
}

}  // namespace
}  // namespace kzcef
