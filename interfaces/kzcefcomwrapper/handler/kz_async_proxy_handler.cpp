// Creates the provider's object, calls its one member late-bound and reads user name and password
// from the flat JSON that it returns. Secrets are wiped before their memory is freed.

#include "handler/kz_async_proxy_handler.h"

#include <windows.h>

#include <oleauto.h>
#include <wchar.h>
#include <wrl/client.h>

#include <string>
#include <string_view>
#include <utility>

#include "com/text.h"
#include "handler/contained_notification.h"
#include "handler/secret_text.h"
#include "utils/flat_json.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;

// The providers' classes.
constexpr wchar_t kMeadowProvider[] = L"{D7EBFB49-DC9B-4560-A73F-893A93575A8E}";
constexpr wchar_t kQuillProvider[] = L"{C9E54B23-10E5-4F0C-AB9B-81181B508E3E}";
constexpr wchar_t kOtherProvider[] = L"{219180B0-7183-4FE2-B167-4E2BFE534004}";

const wchar_t* ProviderOf(const std::wstring& host_kind) {
  if (_wcsicmp(host_kind.c_str(), L"KzxMeadow") == 0) {
    return kMeadowProvider;
  }
  if (_wcsicmp(host_kind.c_str(), L"KzxQuillAddinLoaded") == 0) {
    return kQuillProvider;
  }
  return kOtherProvider;
}

// Initialises COM for as long as it is needed. CEF's UI thread usually has it already, and then
// this changes nothing; but CEF does not promise it.
class ComScope {
 public:
  ComScope() : initialized_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComScope() {
    // Not after RPC_E_CHANGED_MODE: the thread is in another kind of apartment already.
    if (initialized_) {
      CoUninitialize();
    }
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  const bool initialized_;
};

// A value with a secret in it: overwritten before it is freed.
class SecretVariant {
 public:
  SecretVariant() { VariantInit(&value_); }
  ~SecretVariant() {
    if (V_VT(&value_) == VT_BSTR) {
      WipeText(V_BSTR(&value_));
    }
    VariantClear(&value_);
  }
  SecretVariant(const SecretVariant&) = delete;
  SecretVariant& operator=(const SecretVariant&) = delete;

  VARIANT* address() { return &value_; }
  // Empty when it is no text: nothing is converted, for the default member of an object could run
  // whatever it likes.
  std::wstring_view text() const {
    if (V_VT(&value_) == (VT_BSTR | VT_BYREF)) {
      return V_BSTRREF(&value_) ? ViewOf(*V_BSTRREF(&value_)) : std::wstring_view();
    }
    return V_VT(&value_) == VT_BSTR ? ViewOf(V_BSTR(&value_)) : std::wstring_view();
  }

 private:
  VARIANT value_;
};

// What a failed call says of itself: of no use here, but the caller's to free.
struct ExceptionInformation : EXCEPINFO {
  ExceptionInformation() : EXCEPINFO{} {}
  ~ExceptionInformation() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
  ExceptionInformation(const ExceptionInformation&) = delete;
  ExceptionInformation& operator=(const ExceptionInformation&) = delete;
};

// Null when there is none.
ComPtr<IDispatch> CreateProvider() {
  CLSID provider_class = {};
  ComPtr<IDispatch> provider;
  if (FAILED(CLSIDFromString(ProviderOf(HostKind()), &provider_class)) ||
      FAILED(CoCreateInstance(provider_class, nullptr, CLSCTX_INPROC_SERVER,
                              IID_PPV_ARGS(provider.GetAddressOf())))) {
    return nullptr;
  }
  return provider;
}

// Calls "GetProxyCredential" without arguments. False when that fails.
bool CallProvider(IDispatch& provider, VARIANT* result) {
  // The contract's locale, 0x0800.
  constexpr LCID kLocale = LOCALE_SYSTEM_DEFAULT;
  wchar_t name[] = L"GetProxyCredential";
  LPOLESTR names[] = {name};
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(provider.GetIDsOfNames(IID_NULL, names, 1, kLocale, &id))) {
    return false;
  }
  DISPPARAMS no_arguments = {};
  ExceptionInformation exception;
  UINT wrong_argument = 0;
  return SUCCEEDED(provider.Invoke(id, IID_NULL, kLocale, DISPATCH_METHOD, &no_arguments, result,
                                   &exception, &wrong_argument));
}

// Throws std::out_of_range when one of the two is missing.
void ContinueWith(std::wstring_view json, AuthAnswer& answer) {
  const FlatJson<wchar_t> members = ReadFlatJson(json);
  answer.Continue(UncopiedCefString(MemberText<wchar_t>(members, L"username")),
                  UncopiedCefString(MemberText<wchar_t>(members, L"password")));
}

void AskProvider(AuthAnswer& answer) {
  const ComScope com;
  const ComPtr<IDispatch> provider = CreateProvider();
  SecretVariant told;
  if (provider && CallProvider(*provider.Get(), told.address())) {
    ContinueWith(told.text(), answer);
  }
}

}  // namespace

KzAsyncProxyHandler::KzAsyncProxyHandler(AuthAnswer&& answer) : answer_(std::move(answer)) {}

void KzAsyncProxyHandler::Execute() {
  // Cancels at the end of the scope what was not continued, even while others still hold the task.
  AuthAnswer answer(std::move(answer_));
  Contained([&] { AskProvider(answer); });
}

}  // namespace kzcef
