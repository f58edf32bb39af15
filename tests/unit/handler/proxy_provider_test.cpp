// Credentials from the provider that the kind of host comes with.
#include <comdef.h>
#include <gmock/gmock.h>
#include <windows.h>
#include <wrl/client.h>

#include <atomic>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "com/text.h"
#include "handler/kz_async_proxy_handler.h"
#include "recording_cef/fake_auth_callback.h"
#include "recording_cef/recording_cef.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;
using ::testing::IsEmpty;

constexpr wchar_t kMeadow[] = L"{D7EBFB49-DC9B-4560-A73F-893A93575A8E}";
constexpr wchar_t kQuill[] = L"{C9E54B23-10E5-4F0C-AB9B-81181B508E3E}";
constexpr wchar_t kHarbor[] = L"{219180B0-7183-4FE2-B167-4E2BFE534004}";

// What a provider does, and what it was asked.
struct Provider {
  // What GetIDsOfNames and Invoke answer; the result is written even when Invoke fails.
  HRESULT naming = S_OK;
  HRESULT calling = S_OK;
  std::function<void(VARIANT*, EXCEPINFO*)> result = [](VARIANT*, EXCEPINFO*) {};
  // Whether it is an automation object at all.
  bool has_dispatch = true;

  int calls = 0;
  std::wstring asked_name;
  LCID naming_locale = 0;
  LCID calling_locale = 0;
  WORD flags = 0;
  UINT argument_count = 1;
  DISPID called_id = 0;
  bool has_null_iids = false;
  // How many of its objects are there.
  int live = 0;
};

// References to these count in the Provider, which outlives them.
class ProviderObject final : public IDispatch {
 public:
  explicit ProviderObject(Provider& provider) : provider_(provider) { ++provider_.live; }
  ~ProviderObject() { --provider_.live; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown) &&
        !(provider_.has_dispatch && IsEqualIID(iid, IID_IDispatch))) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE
  GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    provider_.has_null_iids = IsEqualIID(iid, IID_NULL) && count == 1;
    provider_.asked_name = names[0];
    provider_.naming_locale = locale;
    ids[0] = 7;
    return provider_.naming;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id,
                                   REFIID iid,
                                   LCID locale,
                                   WORD flags,
                                   DISPPARAMS* parameters,
                                   VARIANT* result,
                                   EXCEPINFO* exception,
                                   UINT*) override {
    ++provider_.calls;
    provider_.called_id = id;
    provider_.has_null_iids = provider_.has_null_iids && IsEqualIID(iid, IID_NULL);
    provider_.calling_locale = locale;
    provider_.flags = flags;
    provider_.argument_count = parameters->cArgs + parameters->cNamedArgs;
    provider_.result(result, exception);
    return provider_.calling;
  }

 private:
  Provider& provider_;
  ULONG references_ = 0;
};

// Lives on the stack of a test, so its references do not count.
class ProviderFactory final : public IClassFactory {
 public:
  explicit ProviderFactory(Provider& provider) : provider_(provider) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    const ComPtr<ProviderObject> created(new ProviderObject(provider_));
    return outer ? CLASS_E_NOAGGREGATION : created->QueryInterface(iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  Provider& provider_;
};

// Makes the class of a provider known to the calling thread's apartment.
class RegisteredProvider {
 public:
  explicit RegisteredProvider(const wchar_t* class_text) {
    CLSID id;
    EXPECT_EQ(CLSIDFromString(class_text, &id), S_OK);
    EXPECT_EQ(
        CoRegisterClassObject(id, &factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
        S_OK);
  }
  ~RegisteredProvider() { EXPECT_EQ(CoRevokeClassObject(cookie_), S_OK); }
  RegisteredProvider(const RegisteredProvider&) = delete;
  RegisteredProvider& operator=(const RegisteredProvider&) = delete;

  Provider* operator->() { return &provider_; }

 private:
  Provider provider_;
  ProviderFactory factory_{provider_};
  DWORD cookie_ = 0;
};

// Answers `text` as automation does.
std::function<void(VARIANT*, EXCEPINFO*)> Text(const std::wstring& text) {
  return [=](VARIANT* result, EXCEPINFO*) {
    V_VT(result) = VT_BSTR;
    V_BSTR(result) = NewBstr(text);
  };
}

class ProxyProviderTest : public ::testing::Test {
 protected:
  ProxyProviderTest() { EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
  ~ProxyProviderTest() override { CoUninitialize(); }

  void Run() {
    const CefRefPtr<CefTask> task = new KzAsyncProxyHandler(AuthAnswer(callback_));
    task->Execute();
  }

  void ExpectContinued(const std::wstring& username, const std::wstring& password) {
    EXPECT_EQ(callback_->cancel_count, 0);
    ASSERT_EQ(callback_->continuations.size(), 1u);
    EXPECT_EQ(callback_->continuations[0].username.ToWString(), username);
    EXPECT_EQ(callback_->continuations[0].password.ToWString(), password);
  }
  void ExpectCancelled() {
    EXPECT_EQ(callback_->cancel_count, 1);
    EXPECT_THAT(callback_->continuations, IsEmpty());
  }

  // What a provider of `kind` that is registered as `class_text` leads to.
  void ExpectAsked(const wchar_t* kind, const wchar_t* class_text) {
    SetHostKind(kind);
    RegisteredProvider provider(class_text);
    provider->result = Text(LR"({"username":"u","password":"p"})");
    Run();
    EXPECT_EQ(provider->calls, 1);
    ExpectContinued(L"u", L"p");
  }
  // What an answer of the provider leads to.
  void Answer(std::function<void(VARIANT*, EXCEPINFO*)> result) {
    SetHostKind(L"KzxMeadow");
    RegisteredProvider provider(kMeadow);
    provider->result = std::move(result);
    Run();
    EXPECT_EQ(provider->calls, 1);
    EXPECT_EQ(provider->live, 0);
  }

  const CefRefPtr<recording_cef::FakeAuthCallback> callback_ = new recording_cef::FakeAuthCallback;
};

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

// Sees COM come and go on its thread.
class ApartmentWatch final : public IInitializeSpy {
 public:
  ApartmentWatch(std::function<void()> on_begin, std::function<void()> on_end)
      : on_begin_(std::move(on_begin)), on_end_(std::move(on_end)) {
    EXPECT_EQ(CoRegisterInitializeSpy(this, &cookie_), S_OK);
  }
  ~ApartmentWatch() { EXPECT_EQ(CoRevokeInitializeSpy(cookie_), S_OK); }
  ApartmentWatch(const ApartmentWatch&) = delete;
  ApartmentWatch& operator=(const ApartmentWatch&) = delete;

  int begun = 0;
  int ended = 0;
  DWORD kind = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IInitializeSpy)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE PreInitialize(DWORD requested, DWORD) override {
    kind = requested;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PostInitialize(HRESULT result, DWORD, DWORD) override {
    ++begun;
    on_begin_();
    return result;
  }
  HRESULT STDMETHODCALLTYPE PreUninitialize(DWORD) override {
    ++ended;
    on_end_();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PostUninitialize(DWORD) override { return S_OK; }

 private:
  const std::function<void()> on_begin_;
  const std::function<void()> on_end_;
  ULARGE_INTEGER cookie_ = {};
};

TEST_F(ProxyProviderTest, IsAskedOnAThreadWithoutCom) {
  SetHostKind(L"KzxMeadow");
  std::thread([&] {
    std::unique_ptr<RegisteredProvider> provider;
    ApartmentWatch watch(
        [&] {
          provider = std::make_unique<RegisteredProvider>(kMeadow);
          (*provider)->result = Text(LR"({"username":"u","password":"p"})");
        },
        [&] {
          EXPECT_EQ((*provider)->live, 0);
          provider = nullptr;
        });
    Run();
    EXPECT_EQ(watch.begun, 1);
    EXPECT_EQ(watch.ended, 1);
    EXPECT_EQ(watch.kind, static_cast<DWORD>(COINIT_APARTMENTTHREADED));
  }).join();
  ExpectContinued(L"u", L"p");
}

TEST_F(ProxyProviderTest, IsAskedInAnApartmentOfAnyKind) {
  SetHostKind(L"KzxMeadow");
  std::thread([&] {
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    {
      RegisteredProvider provider(kMeadow);
      provider->result = Text(LR"({"username":"u","password":"p"})");
      Run();
      // Still in its apartment.
      APTTYPE type = APTTYPE_CURRENT;
      APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
      EXPECT_EQ(CoGetApartmentType(&type, &qualifier), S_OK);
      EXPECT_EQ(type, APTTYPE_MTA);
    }
    CoUninitialize();
  }).join();
  ExpectContinued(L"u", L"p");
}

}  // namespace
}  // namespace kzcef
