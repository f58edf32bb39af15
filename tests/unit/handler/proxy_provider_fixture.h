// Providers of credentials that a test makes, and what their answers lead to.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <utility>

#include "com/text.h"
#include "handler/kz_async_proxy_handler.h"
#include "recording_cef/fake_auth_callback.h"
#include "recording_cef/recording_cef.h"
#include "utils/process_settings.h"

namespace kzcef {

inline constexpr wchar_t kMeadow[] = L"{D7EBFB49-DC9B-4560-A73F-893A93575A8E}";
inline constexpr wchar_t kQuill[] = L"{C9E54B23-10E5-4F0C-AB9B-81181B508E3E}";
inline constexpr wchar_t kHarbor[] = L"{219180B0-7183-4FE2-B167-4E2BFE534004}";

// What a provider does, and what it was asked.
struct Provider {
  // What GetIDsOfNames and Invoke return; the result is written even when Invoke fails.
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
    const Microsoft::WRL::ComPtr<ProviderObject> created(new ProviderObject(provider_));
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

// Returns `text` as automation does.
inline std::function<void(VARIANT*, EXCEPINFO*)> Text(const std::wstring& text) {
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
    EXPECT_THAT(callback_->continuations, ::testing::IsEmpty());
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

}  // namespace kzcef
