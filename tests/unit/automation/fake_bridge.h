// A bridge that has no engine behind it: it writes down what browser objects ask for.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "bridge/kz_cef_bridge.h"

namespace kzcef::testing {

// Instances are numbers from 1 up, and the window of instance n is WindowOf(n). Any thread.
class FakeBridge final : public kzCefBridge {
 public:
  // The window of the n-th instance's browser.
  static HWND WindowOf(int instance);
  static kzCefInstance* Instance(int number);

  // The calls so far, as "Member(arguments)"; an instance is written as its number, none as 0.
  // Queries are not written down.
  std::vector<std::string> calls() const;
  void ForgetCalls();

  // Takes the instance's browser away, or brings it back.
  void SetHasBrowser(int instance, bool has_browser);

  // What Shutdown returns; may throw.
  std::function<bool()> on_shutdown = [] { return true; };
  // Runs inside StartBrowser, once the new instance has its browser; may be empty.
  std::function<void()> on_started;
  // Runs inside AddJSHandler, as the object's own code does while it is marshalled; may be empty.
  std::function<void()> on_script_handler;
  // Serves the reads of cookies; may throw.
  std::function<VARIANT()> on_cookies_read = [] { return VARIANT(); };
  // Runs inside SetUrlCookies with the text; may be empty, and may throw.
  std::function<void(const wchar_t*)> on_cookie_set;
  std::wstring current_url;
  // The result of LoadURL and Refresh where the instance has a browser, and of SetUrlCookies.
  bool succeeds = true;

  bool Shutdown() override;
  void Reserved1() override {}
  int Reserved2() override { return 0; }
  HWND StartBrowser(HWND parent, const wchar_t* url) override;
  kzCefInstance* StartPopupBrowser(HWND, const wchar_t*, kzCefClientHandler*) override {
    return nullptr;
  }
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
  void Record(const std::string& call);

  mutable std::mutex mutex_;
  std::vector<std::string> calls_;
  std::map<kzCefInstance*, bool> has_browser_;
  int last_instance_ = 0;
  kzCefInstance* current_ = nullptr;
};

}  // namespace kzcef::testing
