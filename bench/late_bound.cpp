// Late-bound calls: the server's objects against plain ones that the platform dispatches alone.

#include <windows.h>

#include <comutil.h>
#include <wrl/client.h>

#include <functional>
#include <vector>

#include "KZCEFComWrapper.h"
#include "benchmarks.h"
#include "plain_objects.h"
#include "server.h"

namespace kzbench {
namespace {

using Microsoft::WRL::ComPtr;

constexpr int kCalls = 200'000;

// One member of an object, called as a script engine calls it.
class LateCall {
 public:
  LateCall(ComPtr<IDispatch> object, const wchar_t* member, WORD kind)
      : object_(std::move(object)), kind_(kind) {
    _bstr_t name(member);
    BSTR names[] = {name.GetBSTR()};
    Check(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id_),
          "finding a member by name");
  }

  // `arguments` in the order of the parameters.
  void operator()(std::vector<_variant_t>& reversed) const {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS params{};
    params.rgvarg = reversed.data();
    params.cArgs = static_cast<UINT>(reversed.size());
    if (kind_ == DISPATCH_PROPERTYPUT) {
      params.rgdispidNamedArgs = &put;
      params.cNamedArgs = 1;
    }
    _variant_t result;
    Check(object_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, kind_, &params, &result, nullptr,
                          nullptr),
          "calling a member by name");
  }

 private:
  const ComPtr<IDispatch> object_;
  const WORD kind_;
  DISPID id_ = DISPID_UNKNOWN;
};

void CompareCalls(const char* name,
                  const ComPtr<IDispatch>& served,
                  const ComPtr<IDispatch>& plain,
                  const wchar_t* member,
                  WORD kind,
                  std::vector<_variant_t> reversed_arguments,
                  const Effort& effort) {
  const LateCall subject(served, member, kind);
  const LateCall reference(plain, member, kind);
  const auto timed = [&](const LateCall& call) {
    return [&] {
      return TimePerCall(kCalls / effort.divisor, [&](int times) {
        for (int at = 0; at < times; ++at)
          call(reversed_arguments);
      });
    };
  };
  Compare(name, 1.0, effort, timed(subject), timed(reference));
}

}  // namespace

void RunLateBound(const std::wstring& server_path, const Effort& effort) {
  PrintHeading("late-bound, against ITypeInfo::Invoke");
  const Server server(server_path);
  const auto settings = server.Create<IDispatch>(__uuidof(KZCEFComSettings));
  const auto application = server.Create<IDispatch>(__uuidof(KZCEFComApplication));
  const auto plain_settings = MakePlainSettings(server.TypeInfoOf(__uuidof(IKZCEFComSettings)));
  const auto plain_application =
      MakePlainApplication(server.TypeInfoOf(__uuidof(IKZCEFComApplication2)));

  const _variant_t text(L"en-GB,en;q=0.8");
  CompareCalls("put a text property", settings, plain_settings, L"AcceptLanguageList",
               DISPATCH_PROPERTYPUT, {text}, effort);
  CompareCalls("get a text property", settings, plain_settings, L"AcceptLanguageList",
               DISPATCH_PROPERTYGET, {}, effort);
  CompareCalls("put a number property", settings, plain_settings, L"LogSeverity",
               DISPATCH_PROPERTYPUT, {_variant_t(3L)}, effort);
  CompareCalls("get a number property", settings, plain_settings, L"LogSeverity",
               DISPATCH_PROPERTYGET, {}, effort);
  CompareCalls("call with two texts", settings, plain_settings, L"AddCefCommandLineArg",
               DISPATCH_METHOD, {text, _variant_t(L"lang")}, effort);
  const _variant_t nothing(static_cast<IUnknown*>(nullptr));
  CompareCalls("call with three objects and a number", application, plain_application,
               L"UnRegisterKzCEFBrowserCallback2", DISPATCH_METHOD,
               {nothing, nothing, _variant_t(0L), nothing}, effort);
}

}  // namespace kzbench
