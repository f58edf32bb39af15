// The narrow interface through which the automation objects reach CEF.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace kzcef {

class kzCefClientHandler;
class kzCefInstance;

// One bridge serves every browser of the process: per-browser operations take the target instance
// as their last argument; with a null instance they do nothing and return the value that stands for
// failure. Texts are null-terminated; a null text counts as empty. Called on the host's thread;
// nothing is locked. The order of the operations is fixed.
class kzCefBridge {
 public:
  // Calls CefShutdown, then gives the cache lock back. Returns false when anything threw.
  virtual bool Shutdown() = 0;
  virtual void Reserved1() = 0;
  // Always returns 0.
  virtual int Reserved2() = 0;
  // Makes a new instance, current from then on, whose browser is a child that fills `parent`.
  // Returns `parent`, or null without a parent or when the creation failed.
  virtual HWND StartBrowser(HWND parent, const wchar_t* url) = 0;
  // The same for a browser that serves an existing client handler; the new instance does not become
  // the current one. The caller owns it and frees it with DestroyInstance. Returns null on failure.
  virtual kzCefInstance* StartPopupBrowser(HWND parent,
                                           const wchar_t* url,
                                           kzCefClientHandler* handler) = 0;
  // Returns the browser's window; null until the browser exists.
  virtual HWND GetWindowHandle(kzCefInstance* instance) = 0;
  // Returns true whenever there is an instance, also while it has no browser (nothing is loaded
  // then).
  virtual bool LoadURL(const wchar_t* url, kzCefInstance* instance) = 0;
  // Writes the main frame's URL to `url` and returns `url`; empty without a browser.
  virtual std::wstring& GetURL(std::wstring& url, kzCefInstance* instance) = 0;
  // Returns true whenever there is an instance, also while it has no browser (nothing runs then).
  virtual bool ExecuteJS(const wchar_t* script, kzCefInstance* instance) = 0;
  // Offers a host object to the page under a script name. Returns true whenever there is an
  // instance.
  virtual bool AddJSHandler(const wchar_t* object_name,
                            IDispatch* object,
                            kzCefInstance* instance) = 0;
  virtual bool RemoveJSHandler(const wchar_t* object_name,
                               IDispatch* object,
                               kzCefInstance* instance) = 0;
  // The same as ResizeBrowserRect at 0, 0.
  virtual bool ResizeBrowser(double width, double height, kzCefInstance* instance) = 0;
  // Returns the instance of the last StartBrowser, or null.
  virtual kzCefInstance* GetInstance() = 0;
  virtual void SetInstance(kzCefInstance* instance) = 0;
  // Cookies are those of CEF's global store. What the reads return belongs to the caller: a
  // one-dimensional SAFEARRAY of BSTR from index 0, with one cookie text (cookie_text.h) per
  // element, or VT_EMPTY without any. A language cookie among what is read or written sets
  // CookieLanguage. These operations throw: std::out_of_range "invalid map<K, T> key", and errors
  // for want of memory or a thread.

  // To be called before the two operations below, which without it find and set nothing.
  virtual void PrepareCookieAccess() = 0;
  // Asks for the cookies of `url` and returns those that have arrived so far: often none at first.
  virtual VARIANT GetUrlCookies(const wchar_t* url) = 0;
  // Asks for a cookie to be stored: secure, for the session, sent along from every site. Returns
  // false, and sets nothing, for a text without members; throws std::out_of_range for one that has
  // members, but not "name", "value" and "domain". True does not mean that the cookie is stored in
  // the end.
  virtual bool SetUrlCookies(const wchar_t* url, const wchar_t* cookie_json) = 0;
  // Returns false without a browser.
  virtual bool Refresh(bool ignore_cache, kzCefInstance* instance) = 0;
  // Frees the instance; it stops being the current one.
  virtual void DestroyInstance(kzCefInstance* instance) = 0;
  // In pixels of the parent's client area, truncated toward zero; kept for a browser yet to come.
  virtual bool ResizeBrowserRect(double x,
                                 double y,
                                 double width,
                                 double height,
                                 kzCefInstance* instance) = 0;
  // Returns the cookies of `url`, which must not be null, or all of them. Waits for the store, in
  // steps of 100 ms and without a time-out, until every cookie has come or no more can come; when
  // none has come after the first step, there are none. Not to be called on CEF's own threads.
  virtual VARIANT GetCookiesSync(bool all_cookies, const wchar_t* url) = 0;

 protected:
  // The bridge lives from load to unload and is never destroyed through this interface.
  ~kzCefBridge() = default;
};

}  // namespace kzcef
