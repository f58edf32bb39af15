// The host's calls on the server, late-bound: each calls the member by its name through IDispatch.

#include <utility>

#include "com/automation_calls.h"
#include "com/dispatch_call.h"
#include "com/variant_json.h"

namespace kzhost {
namespace {

// Calls `name` with `arguments`, in the order of the declaration.
template <typename... Arguments>
HRESULT Call(IDispatch* object, const wchar_t* name, VARIANT* result, Arguments&&... arguments) {
  Variant list[] = {std::forward<Arguments>(arguments)...};
  return CallMethod(object, name, list, result);
}

Variant NoToken() {
  return ObjectVariant(nullptr);
}

// Hands the object in `result` out with the reference that it holds.
HRESULT TakeObject(HRESULT outcome, const Variant& result, IDispatch** object) {
  *object = nullptr;
  if (FAILED(outcome)) {
    return outcome;
  }
  if ((result.vt != VT_DISPATCH && result.vt != VT_UNKNOWN) || !result.punkVal) {
    return E_FAIL;
  }
  const HRESULT answer = result.punkVal->QueryInterface(IID_PPV_ARGS(object));
  return FAILED(answer) ? answer : outcome;
}

class LateCalls final : public AutomationCalls {
 public:
  HRESULT GetToken(IDispatch* application, const std::wstring& product_key) override {
    return Call(application, L"GetToken", Variant().Receive(), TextVariant(product_key), Variant());
  }

  HRESULT GetSettings(IDispatch* application, IDispatch** settings) override {
    Variant result;
    return TakeObject(Call(application, L"GetKzCEFComSettings", &result, NoToken()), result,
                      settings);
  }

  HRESULT GetBrowser(IDispatch* application, IDispatch** browser) override {
    Variant result;
    return TakeObject(Call(application, L"GetKzCEFBrowser", &result, NoToken(), NumberVariant(0)),
                      result, browser);
  }

  HRESULT RegisterHandler(IDispatch* application, IDispatch* browser, IDispatch* handler) override {
    return Call(application, L"RegisterKzCEFBrowserCallback", nullptr, NoToken(),
                NumberVariant(kAddinId), ObjectVariant(browser), ObjectVariant(handler));
  }

  HRESULT UnregisterHandler(IDispatch* application,
                            IDispatch* browser,
                            IDispatch* handler) override {
    return Call(application, L"UnRegisterKzCEFBrowserCallback", nullptr, NoToken(),
                NumberVariant(kAddinId), ObjectVariant(browser), ObjectVariant(handler));
  }

  HRESULT InitCef(IDispatch* application, IDispatch* settings) override {
    return Call(application, L"InitCef", nullptr, NoToken(), ObjectVariant(settings));
  }

  HRESULT ExitCef(IDispatch* application) override {
    return Call(application, L"ExitCef", nullptr, NoToken());
  }

  HRESULT HostClosing(IDispatch* application) override {
    return Call(application, L"HostClosing", nullptr, FlagVariant(true));
  }

  HRESULT IsProcessingNotifications(IDispatch* application, bool& processing) override {
    Variant result;
    const HRESULT outcome = CallMethod(application, L"IsProcessingNotifications", {}, &result);
    processing = result.vt == VT_BOOL && result.boolVal != VARIANT_FALSE;
    return outcome;
  }

  HRESULT PutCachePath(IDispatch* settings, const std::wstring& path) override {
    return PutProperty(settings, L"CachePath", TextVariant(path));
  }

  HRESULT PutMultiThreadedMessageLoop(IDispatch* settings, bool flag) override {
    return PutProperty(settings, L"MultiThreadedMessageLoop", FlagVariant(flag));
  }

  HRESULT AddSwitch(IDispatch* settings,
                    const std::wstring& name,
                    const std::wstring& value) override {
    return Call(settings, L"AddCefCommandLineArg", nullptr, TextVariant(name), TextVariant(value));
  }

  HRESULT GetCookieManager(IDispatch* application, IDispatch** manager) override {
    Variant result;
    return TakeObject(Call(application, L"GetCookieManager", &result, NoToken(), NumberVariant(0)),
                      result, manager);
  }

  HRESULT GetUrlCookies(IDispatch* manager, const std::wstring& url, VARIANT* cookies) override {
    return Call(manager, L"GetUrlCookies", cookies, TextVariant(url));
  }

  HRESULT GetUrlCookiesSync(IDispatch* manager,
                            const std::wstring& url,
                            VARIANT* cookies) override {
    return Call(manager, L"GetUrlCookiesSync", cookies, TextVariant(url));
  }

  HRESULT GetAllCookiesSync(IDispatch* manager, VARIANT* cookies) override {
    return CallMethod(manager, L"GetAllCookiesSync", {}, cookies);
  }

  HRESULT SetUrlCookies(IDispatch* manager,
                        const std::wstring& url,
                        Variant cookies,
                        bool& done) override {
    Variant result;
    const HRESULT outcome =
        Call(manager, L"SetUrlCookies", &result, TextVariant(url), std::move(cookies));
    done = result.vt == VT_BOOL && result.boolVal != VARIANT_FALSE;
    return outcome;
  }

  HRESULT PutUrl(IDispatch* browser, const std::wstring& url) override {
    return PutProperty(browser, L"URL", TextVariant(url));
  }

  HRESULT GetUrl(IDispatch* browser, std::wstring& url) override {
    Variant result;
    const HRESULT outcome = GetProperty(browser, L"URL", &result);
    const bool is_text = result.vt == VT_BSTR && result.bstrVal;
    url.assign(is_text ? result.bstrVal : L"", is_text ? SysStringLen(result.bstrVal) : 0);
    return outcome;
  }

  HRESULT PutPopupUserBrowser(IDispatch* browser, bool flag) override {
    return PutProperty(browser, L"PopupUserBrowser", FlagVariant(flag));
  }

  HRESULT StartBrowser(IDispatch* browser, HWND parent) override {
    return Call(browser, L"StartBrowser", nullptr, HandleVariant(parent));
  }

  HRESULT GetWindowHandle(IDispatch* browser, HWND& window) override {
    Variant result;
    const HRESULT outcome = CallMethod(browser, L"GetWindowHandle", {}, &result);
    window =
        result.vt == VT_I8 ? reinterpret_cast<HWND>(static_cast<INT_PTR>(result.llVal)) : nullptr;
    return outcome;
  }

  HRESULT ResizeBrowser(IDispatch* browser, int width, int height) override {
    return Call(browser, L"ResizeBrowser", nullptr, DoubleVariant(width), DoubleVariant(height));
  }

  HRESULT Refresh(IDispatch* browser, bool ignore_cache) override {
    return Call(browser, L"Refresh", nullptr, FlagVariant(ignore_cache));
  }

  HRESULT ExecuteJs(IDispatch* browser, const std::wstring& code) override {
    return Call(browser, L"ExecuteJS", nullptr, TextVariant(code));
  }
};

}  // namespace

std::unique_ptr<AutomationCalls> MakeLateCalls() {
  return std::make_unique<LateCalls>();
}

}  // namespace kzhost
