// The calls that the host itself makes on the server's objects, bound early or late.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <string>

#include "com/variant.h"

namespace kzhost {

// Objects are passed as IDispatch pointers, which every object of the server has; a call on an
// object that lacks the member's interface returns E_NOINTERFACE or DISP_E_UNKNOWNNAME. Called on
// the thread that created the objects. Token parameters are null: the server does not read them.
class AutomationCalls {
 public:
  virtual ~AutomationCalls() = default;

  virtual HRESULT GetToken(IDispatch* application, const std::wstring& product_key) = 0;
  // The caller releases `*settings` and `*browser`; they are null unless the call succeeded.
  virtual HRESULT GetSettings(IDispatch* application, IDispatch** settings) = 0;
  virtual HRESULT GetBrowser(IDispatch* application, IDispatch** browser) = 0;
  virtual HRESULT RegisterHandler(IDispatch* application,
                                  IDispatch* browser,
                                  IDispatch* handler) = 0;
  virtual HRESULT UnregisterHandler(IDispatch* application,
                                    IDispatch* browser,
                                    IDispatch* handler) = 0;
  virtual HRESULT InitCef(IDispatch* application, IDispatch* settings) = 0;
  virtual HRESULT ExitCef(IDispatch* application) = 0;
  virtual HRESULT HostClosing(IDispatch* application) = 0;
  virtual HRESULT IsProcessingNotifications(IDispatch* application, bool& processing) = 0;

  virtual HRESULT PutCachePath(IDispatch* settings, const std::wstring& path) = 0;
  virtual HRESULT PutMultiThreadedMessageLoop(IDispatch* settings, bool flag) = 0;
  virtual HRESULT AddSwitch(IDispatch* settings,
                            const std::wstring& name,
                            const std::wstring& value) = 0;

  // The caller releases `*manager`, which is null unless the call succeeded.
  virtual HRESULT GetCookieManager(IDispatch* application, IDispatch** manager) = 0;
  // The caller clears `*cookies`, which must be empty: an array of texts or empty again.
  virtual HRESULT GetUrlCookies(IDispatch* manager, const std::wstring& url, VARIANT* cookies) = 0;
  virtual HRESULT GetUrlCookiesSync(IDispatch* manager,
                                    const std::wstring& url,
                                    VARIANT* cookies) = 0;
  virtual HRESULT GetAllCookiesSync(IDispatch* manager, VARIANT* cookies) = 0;
  // `cookies` is taken.
  virtual HRESULT SetUrlCookies(IDispatch* manager,
                                const std::wstring& url,
                                Variant cookies,
                                bool& done) = 0;

  virtual HRESULT PutUrl(IDispatch* browser, const std::wstring& url) = 0;
  virtual HRESULT GetUrl(IDispatch* browser, std::wstring& url) = 0;
  virtual HRESULT PutPopupUserBrowser(IDispatch* browser, bool flag) = 0;
  virtual HRESULT StartBrowser(IDispatch* browser, HWND parent) = 0;
  // The window of the engine's browser; null while there is none.
  virtual HRESULT GetWindowHandle(IDispatch* browser, HWND& window) = 0;
  virtual HRESULT ResizeBrowser(IDispatch* browser, int width, int height) = 0;
  virtual HRESULT Refresh(IDispatch* browser, bool ignore_cache) = 0;
  virtual HRESULT ExecuteJs(IDispatch* browser, const std::wstring& code) = 0;
};

// What the host passes as its add-in identifier.
constexpr long kAddinId = 1;

// Returns calls that are made through the interfaces of the type library.
std::unique_ptr<AutomationCalls> MakeEarlyCalls();

// Returns calls that are made through IDispatch alone.
std::unique_ptr<AutomationCalls> MakeLateCalls();

}  // namespace kzhost
