// Automation objects that do as little as their interfaces
// allow and leave dispatching to ITypeInfo.

#include "plain_objects.h"

#include <oleauto.h>

#include <map>
#include <string>
#include <type_traits>
#include <utility>

#include "KZCEFComWrapper.h"

namespace kzbench {
namespace {

using Microsoft::WRL::ComPtr;

// Counted, and dispatched by the platform.
template <typename Interface>
class Plain : public Interface {
 public:
  explicit Plain(ComPtr<ITypeInfo> information) : information_(std::move(information)) {}
  virtual ~Plain() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
        IsEqualIID(iid, __uuidof(Interface))) {
      *object = static_cast<Interface*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0)
      delete this;
    return static_cast<ULONG>(left);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
    return information_.CopyTo(information);
  }
  HRESULT STDMETHODCALLTYPE
  GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return information_->GetIDsOfNames(names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id,
                                   REFIID,
                                   LCID,
                                   WORD flags,
                                   DISPPARAMS* params,
                                   VARIANT* result,
                                   EXCEPINFO* exception,
                                   UINT* bad_argument) override {
    return information_->Invoke(static_cast<Interface*>(this), id, flags, params, result, exception,
                                bad_argument);
  }

 private:
  const ComPtr<ITypeInfo> information_;
  volatile LONG references_ = 0;
};

HRESULT Give(const std::wstring& text, BSTR* out) {
  *out = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return *out ? S_OK : E_OUTOFMEMORY;
}

HRESULT Take(BSTR text, std::wstring* place) {
  place->assign(text ? text : L"", SysStringLen(text));
  return S_OK;
}

template <typename Number>
HRESULT Give(Number number, Number* out) {
  *out = number;
  return S_OK;
}

template <typename Number>
HRESULT Take(Number number, Number* place) {
  *place = number;
  return S_OK;
}

#define KZBENCH_PROPERTY(name, Outer, Inner, field)                              \
  HRESULT STDMETHODCALLTYPE get_##name(std::add_pointer_t<Outer> out) override { \
    return Give(field, out);                                                     \
  }                                                                              \
  HRESULT STDMETHODCALLTYPE put_##name(Outer value) override {                   \
    return Take(value, &(field));                                                \
  }                                                                              \
  Inner field{};
#define KZBENCH_TEXT(name, field) KZBENCH_PROPERTY(name, BSTR, std::wstring, field)
#define KZBENCH_FLAG(name, field) KZBENCH_PROPERTY(name, VARIANT_BOOL, VARIANT_BOOL, field)
#define KZBENCH_NUMBER(name, field) KZBENCH_PROPERTY(name, LONG, LONG, field)

class PlainSettings final : public Plain<IKZCEFComSettings> {
 public:
  using Plain::Plain;

  HRESULT STDMETHODCALLTYPE AddCefCommandLineArg(BSTR name, BSTR value) override {
    arguments_[std::wstring(name, SysStringLen(name))].assign(value, SysStringLen(value));
    return S_OK;
  }

  KZBENCH_TEXT(AcceptLanguageList, accept_languages_)
  KZBENCH_TEXT(BrowserSubprocessPath, subprocess_path_)
  KZBENCH_TEXT(CachePath, cache_path_)
  KZBENCH_FLAG(CommandLineArgsDisabled, arguments_disabled_)
  KZBENCH_TEXT(JavascriptFlags, script_flags_)
  KZBENCH_TEXT(Locale, locale_)
  KZBENCH_TEXT(LocalesDirPath, locales_path_)
  KZBENCH_TEXT(LogFile, log_file_)
  KZBENCH_NUMBER(LogSeverity, log_severity_)
  KZBENCH_FLAG(MultiThreadedMessageLoop, multi_threaded_)
  KZBENCH_FLAG(PackLoadingDisabled, packs_disabled_)
  KZBENCH_FLAG(PersistSessionCookies, session_cookies_)
  KZBENCH_NUMBER(RemoteDebuggingPort, debugging_port_)
  KZBENCH_TEXT(ResourcesDirPath, resources_path_)
  KZBENCH_NUMBER(UncaughtExceptionStackSize, stack_size_)
  KZBENCH_TEXT(UserAgent, user_agent_)
  KZBENCH_TEXT(UserAgentProduct, product_)
  KZBENCH_TEXT(UserDataPath, user_data_path_)
  KZBENCH_FLAG(WindowlessRenderingEnabled, windowless_)
  KZBENCH_TEXT(ApplicationType, application_type_)
  KZBENCH_TEXT(LangResourceDllPath, language_path_)
  KZBENCH_NUMBER(HubPort, hub_port_)

 private:
  std::map<std::wstring, std::wstring> arguments_;
};

class PlainApplication final : public Plain<IKZCEFComApplication2> {
 public:
  using Plain::Plain;

  HRESULT STDMETHODCALLTYPE GetToken(BSTR, VARIANT, IKZCEFComToken**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetKzCEFBrowser(IKZCEFComToken*, LONG, IKZCEFComBrowser**) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE RegisterKzCEFBrowserCallback(IKZCEFComToken*,
                                                         LONG,
                                                         IKZCEFComBrowser*,
                                                         IKZCEFComBrowserHandler*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE UnRegisterKzCEFBrowserCallback(IKZCEFComToken*,
                                                           LONG,
                                                           IKZCEFComBrowser*,
                                                           IKZCEFComBrowserHandler*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetCookieManager(IKZCEFComToken*,
                                             LONG,
                                             IKZCEFComCookieManager**) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE InitCef(IKZCEFComToken*, IKZCEFComSettings*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ExitCef(IKZCEFComToken*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetKzCEFComSettings(IKZCEFComToken*, IKZCEFComSettings**) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE RegisterKzCEFBrowserCallback2(IUnknown*,
                                                          LONG,
                                                          IUnknown*,
                                                          IUnknown*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE UnRegisterKzCEFBrowserCallback2(IUnknown*,
                                                            LONG,
                                                            IUnknown*,
                                                            IUnknown*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE HostClosing(VARIANT_BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsProcessingNotifications(VARIANT_BOOL*) override { return S_OK; }
};

}  // namespace

ComPtr<IDispatch> MakePlainSettings(ComPtr<ITypeInfo> information) {
  return ComPtr<IDispatch>(new PlainSettings(std::move(information)));
}

ComPtr<IDispatch> MakePlainApplication(ComPtr<ITypeInfo> information) {
  return ComPtr<IDispatch>(new PlainApplication(std::move(information)));
}

}  // namespace kzbench
