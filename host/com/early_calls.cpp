// The host's calls on the server, early-bound: each asks the object for its interface of the type
// library and calls the member directly.

#include <wrl/client.h>

#include "KZCEFComWrapper.h"
#include "com/automation_calls.h"
#include "wide_text.h"

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

VARIANT_BOOL ToVariantBool(bool flag) {
  return flag ? VARIANT_TRUE : VARIANT_FALSE;
}

// Calls `call` with the `Interface` of `object`.
template <typename Interface, typename Call>
HRESULT With(IDispatch* object, Call&& call) {
  ComPtr<Interface> typed;
  const HRESULT result = object ? object->QueryInterface(IID_PPV_ARGS(&typed)) : E_POINTER;
  return FAILED(result) ? result : call(typed.Get());
}

// Hands the interface that `call` fills out as an IDispatch.
template <typename Interface, typename Call>
HRESULT Fetch(IDispatch** object, Call&& call) {
  *object = nullptr;
  ComPtr<Interface> typed;
  const HRESULT result = call(typed.GetAddressOf());
  if (FAILED(result) || !typed) {
    return FAILED(result) ? result : E_FAIL;
  }
  *object = typed.Detach();
  return result;
}

class EarlyCalls final : public AutomationCalls {
 public:
  HRESULT GetToken(IDispatch* application, const std::wstring& product_key) override {
    return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
      VARIANT keys;
      VariantInit(&keys);
      ComPtr<IKZCEFComToken> token;
      return typed->GetToken(MakeBstr(product_key).get(), keys, &token);
    });
  }

  HRESULT GetSettings(IDispatch* application, IDispatch** settings) override {
    return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
      return Fetch<IKZCEFComSettings>(settings, [&](IKZCEFComSettings** fetched) {
        return typed->GetKzCEFComSettings(nullptr, fetched);
      });
    });
  }

  HRESULT GetBrowser(IDispatch* application, IDispatch** browser) override {
    return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
      return Fetch<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser** fetched) {
        return typed->GetKzCEFBrowser(nullptr, 0, fetched);
      });
    });
  }

  HRESULT RegisterHandler(IDispatch* application, IDispatch* browser, IDispatch* handler) override {
    return WithPair(browser, handler, [&](IKZCEFComBrowser* b, IKZCEFComBrowserHandler* h) {
      return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
        return typed->RegisterKzCEFBrowserCallback(nullptr, kAddinId, b, h);
      });
    });
  }

  HRESULT UnregisterHandler(IDispatch* application,
                            IDispatch* browser,
                            IDispatch* handler) override {
    return WithPair(browser, handler, [&](IKZCEFComBrowser* b, IKZCEFComBrowserHandler* h) {
      return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
        return typed->UnRegisterKzCEFBrowserCallback(nullptr, kAddinId, b, h);
      });
    });
  }

  HRESULT InitCef(IDispatch* application, IDispatch* settings) override {
    return With<IKZCEFComSettings>(settings, [&](IKZCEFComSettings* typed_settings) {
      return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
        return typed->InitCef(nullptr, typed_settings);
      });
    });
  }

  HRESULT ExitCef(IDispatch* application) override {
    return With<IKZCEFComApplication>(
        application, [](IKZCEFComApplication* typed) { return typed->ExitCef(nullptr); });
  }

  HRESULT HostClosing(IDispatch* application) override {
    return With<IKZCEFComApplication2>(
        application, [](IKZCEFComApplication2* typed) { return typed->HostClosing(VARIANT_TRUE); });
  }

  HRESULT IsProcessingNotifications(IDispatch* application, bool& processing) override {
    return With<IKZCEFComApplication2>(application, [&](IKZCEFComApplication2* typed) {
      VARIANT_BOOL flag = VARIANT_FALSE;
      const HRESULT result = typed->IsProcessingNotifications(&flag);
      processing = flag != VARIANT_FALSE;
      return result;
    });
  }

  HRESULT PutCachePath(IDispatch* settings, const std::wstring& path) override {
    return With<IKZCEFComSettings>(settings, [&](IKZCEFComSettings* typed) {
      return typed->put_CachePath(MakeBstr(path).get());
    });
  }

  HRESULT PutMultiThreadedMessageLoop(IDispatch* settings, bool flag) override {
    return With<IKZCEFComSettings>(settings, [&](IKZCEFComSettings* typed) {
      return typed->put_MultiThreadedMessageLoop(ToVariantBool(flag));
    });
  }

  HRESULT AddSwitch(IDispatch* settings,
                    const std::wstring& name,
                    const std::wstring& value) override {
    return With<IKZCEFComSettings>(settings, [&](IKZCEFComSettings* typed) {
      return typed->AddCefCommandLineArg(MakeBstr(name).get(), MakeBstr(value).get());
    });
  }

  HRESULT GetCookieManager(IDispatch* application, IDispatch** manager) override {
    return With<IKZCEFComApplication>(application, [&](IKZCEFComApplication* typed) {
      return Fetch<IKZCEFComCookieManager>(manager, [&](IKZCEFComCookieManager** fetched) {
        return typed->GetCookieManager(nullptr, 0, fetched);
      });
    });
  }

  HRESULT GetUrlCookies(IDispatch* manager, const std::wstring& url, VARIANT* cookies) override {
    return With<IKZCEFComCookieManager>(manager, [&](IKZCEFComCookieManager* typed) {
      return typed->GetUrlCookies(MakeBstr(url).get(), cookies);
    });
  }

  HRESULT GetUrlCookiesSync(IDispatch* manager,
                            const std::wstring& url,
                            VARIANT* cookies) override {
    return With<IKZCEFComCookieManager>(manager, [&](IKZCEFComCookieManager* typed) {
      return typed->GetUrlCookiesSync(MakeBstr(url).get(), cookies);
    });
  }

  HRESULT GetAllCookiesSync(IDispatch* manager, VARIANT* cookies) override {
    return With<IKZCEFComCookieManager>(
        manager, [&](IKZCEFComCookieManager* typed) { return typed->GetAllCookiesSync(cookies); });
  }

  HRESULT SetUrlCookies(IDispatch* manager,
                        const std::wstring& url,
                        Variant cookies,
                        bool& done) override {
    return With<IKZCEFComCookieManager>(manager, [&](IKZCEFComCookieManager* typed) {
      VARIANT_BOOL flag = VARIANT_FALSE;
      const HRESULT result = typed->SetUrlCookies(MakeBstr(url).get(), cookies, &flag);
      done = flag != VARIANT_FALSE;
      return result;
    });
  }

  HRESULT PutUrl(IDispatch* browser, const std::wstring& url) override {
    return With<IKZCEFComBrowser>(
        browser, [&](IKZCEFComBrowser* typed) { return typed->put_URL(MakeBstr(url).get()); });
  }

  HRESULT GetUrl(IDispatch* browser, std::wstring& url) override {
    return With<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser* typed) {
      BSTR text = nullptr;
      const HRESULT result = typed->get_URL(&text);
      const Bstr owned(text);
      url.assign(text ? text : L"", SysStringLen(text));
      return result;
    });
  }

  HRESULT PutPopupUserBrowser(IDispatch* browser, bool flag) override {
    return With<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser* typed) {
      return typed->put_PopupUserBrowser(ToVariantBool(flag));
    });
  }

  HRESULT StartBrowser(IDispatch* browser, HWND parent) override {
    return With<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser* typed) {
      return typed->StartBrowser(reinterpret_cast<INT_PTR>(parent));
    });
  }

  HRESULT GetWindowHandle(IDispatch* browser, HWND& window) override {
    return With<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser* typed) {
      __int64 handle = 0;
      const HRESULT result = typed->GetWindowHandle(&handle);
      window = reinterpret_cast<HWND>(static_cast<INT_PTR>(handle));
      return result;
    });
  }

  HRESULT ResizeBrowser(IDispatch* browser, int width, int height) override {
    return With<IKZCEFComBrowser>(
        browser, [&](IKZCEFComBrowser* typed) { return typed->ResizeBrowser(width, height); });
  }

  HRESULT Refresh(IDispatch* browser, bool ignore_cache) override {
    return With<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser* typed) {
      return typed->Refresh(ToVariantBool(ignore_cache));
    });
  }

  HRESULT ExecuteJs(IDispatch* browser, const std::wstring& code) override {
    return With<IKZCEFComBrowser>(
        browser, [&](IKZCEFComBrowser* typed) { return typed->ExecuteJS(MakeBstr(code).get()); });
  }

 private:
  template <typename Call>
  static HRESULT WithPair(IDispatch* browser, IDispatch* handler, Call&& call) {
    return With<IKZCEFComBrowser>(browser, [&](IKZCEFComBrowser* typed_browser) {
      return With<IKZCEFComBrowserHandler>(handler, [&](IKZCEFComBrowserHandler* typed_handler) {
        return call(typed_browser, typed_handler);
      });
    });
  }
};

}  // namespace

std::unique_ptr<AutomationCalls> MakeEarlyCalls() {
  return std::make_unique<EarlyCalls>();
}

}  // namespace kzhost
