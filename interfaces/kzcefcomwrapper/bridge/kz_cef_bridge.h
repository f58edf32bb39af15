// The narrow interface through which the automation objects reach CEF.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace kzcef {

class kzCefClientHandler;
class kzCefInstance;

// One bridge serves every browser of the process: per-browser operations take the target instance
// as their last argument, and a null instance makes them answer the failure value without effect.
// Texts are null-terminated; a null text counts as empty. Called on the host's thread; nothing is
// locked. The order of the operations is fixed.
class kzCefBridge {
 public:
  // CefShutdown, then the cache lock is given back. False when anything threw.
  virtual bool Shutdown() = 0;
  virtual void Reserved1() = 0;
  // Always 0.
  virtual int Reserved2() = 0;
  // Makes a new instance, current from then on, with its browser as a child filling `parent`.
  // Answers `parent`, or null without a parent or when the creation failed.
  virtual HWND StartBrowser(HWND parent, const wchar_t* url) = 0;
  // The same for a browser that serves an existing client handler; the new instance does not become
  // the current one. The caller owns it through DestroyInstance. Null on failure.
  virtual kzCefInstance* StartPopupBrowser(HWND parent,
                                           const wchar_t* url,
                                           kzCefClientHandler* handler) = 0;
  // The browser's window, null until the browser exists.
  virtual HWND GetWindowHandle(kzCefInstance* instance) = 0;
  // True whenever there is an instance, also while it has no browser (nothing is loaded then).
  virtual bool LoadURL(const wchar_t* url, kzCefInstance* instance) = 0;
  // The main frame's URL in `url`, which is also the result; empty without a browser.
  virtual std::wstring& GetURL(std::wstring& url, kzCefInstance* instance) = 0;
  // True whenever there is an instance, also while it has no browser (nothing runs then).
  virtual bool ExecuteJS(const wchar_t* script, kzCefInstance* instance) = 0;
  // Offers a host object to the page under a script name. True whenever there is an instance.
  virtual bool AddJSHandler(const wchar_t* object_name,
                            IDispatch* object,
                            kzCefInstance* instance) = 0;
  virtual bool RemoveJSHandler(const wchar_t* object_name,
                               IDispatch* object,
                               kzCefInstance* instance) = 0;
  // ResizeBrowserRect at 0, 0.
  virtual bool ResizeBrowser(double width, double height, kzCefInstance* instance) = 0;
  // The instance of the last StartBrowser, or null.
  virtual kzCefInstance* GetInstance() = 0;
  virtual void SetInstance(kzCefInstance* instance) = 0;
  virtual void PrepareCookieAccess() = 0;
  virtual VARIANT GetUrlCookies(const wchar_t* url) = 0;
  virtual bool SetUrlCookies(const wchar_t* url, const wchar_t* cookie_json) = 0;
  // False without a browser.
  virtual bool Refresh(bool ignore_cache, kzCefInstance* instance) = 0;
  // Frees the instance; it stops being the current one.
  virtual void DestroyInstance(kzCefInstance* instance) = 0;
  // Pixels in the parent's client area, truncated toward zero; kept for a browser yet to come.
  virtual bool ResizeBrowserRect(double x,
                                 double y,
                                 double width,
                                 double height,
                                 kzCefInstance* instance) = 0;
  virtual VARIANT GetCookiesSync(bool all_cookies, const wchar_t* url) = 0;

 protected:
  // The bridge lives from load to unload and is never destroyed through this interface.
  ~kzCefBridge() = default;
};

}  // namespace kzcef
