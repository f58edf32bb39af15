// The process's bridge between the automation objects and CEF.
#pragma once

#include "bridge/cookie_visitors.h"
#include "bridge/kz_cef_bridge.h"
#include "include/cef_cookie.h"

namespace kzcef {

class kzCefBridgeImpl final : public kzCefBridge {
 public:
  kzCefBridgeImpl() = default;
  kzCefBridgeImpl(const kzCefBridgeImpl&) = delete;
  kzCefBridgeImpl& operator=(const kzCefBridgeImpl&) = delete;

  bool Shutdown() override;
  void Reserved1() override;
  int Reserved2() override;
  HWND StartBrowser(HWND parent, const wchar_t* url) override;
  kzCefInstance* StartPopupBrowser(HWND parent,
                                   const wchar_t* url,
                                   kzCefClientHandler* handler) override;
  HWND GetWindowHandle(kzCefInstance* instance) override;
  bool LoadURL(const wchar_t* url, kzCefInstance* instance) override;
  std::wstring& GetURL(std::wstring& url, kzCefInstance* instance) override;
  bool ExecuteJS(const wchar_t* script, kzCefInstance* instance) override;
  bool AddJSHandler(const wchar_t* object_name,
                    IDispatch* object,
                    kzCefInstance* instance) override;
  bool RemoveJSHandler(const wchar_t* object_name,
                       IDispatch* object,
                       kzCefInstance* instance) override;
  bool ResizeBrowser(double width, double height, kzCefInstance* instance) override;
  kzCefInstance* GetInstance() override;
  void SetInstance(kzCefInstance* instance) override;
  void PrepareCookieAccess() override;
  VARIANT GetUrlCookies(const wchar_t* url) override;
  bool SetUrlCookies(const wchar_t* url, const wchar_t* cookie_json) override;
  bool Refresh(bool ignore_cache, kzCefInstance* instance) override;
  void DestroyInstance(kzCefInstance* instance) override;
  bool ResizeBrowserRect(double x,
                         double y,
                         double width,
                         double height,
                         kzCefInstance* instance) override;
  VARIANT GetCookiesSync(bool all_cookies, const wchar_t* url) override;

 private:
  // Not counted; freed only by DestroyInstance.
  kzCefInstance* current_instance_ = nullptr;
  // Freed in the reverse order: the manager before the visitor. Null until PrepareCookieAccess.
  CefRefPtr<kzCefCookieVisitor> cookie_visitor_;
  CefRefPtr<CefCookieManager> cookie_manager_;
};

// Returns the one bridge, which lives from its first use to the end of the process.
kzCefBridgeImpl& BridgeSingleton();

}  // namespace kzcef
