// Writes each operation down as a text with its arguments, and returns what the test has set.

#include "fake_bridge.h"

#include <cstdint>
#include <sstream>
#include <type_traits>

namespace kzcef::testing {
namespace {

constexpr std::uintptr_t kWindowOfFirst = 0x1000;

std::string Text(const wchar_t* text) {
  const std::wstring wide = text ? text : L"(null)";
  return {wide.begin(), wide.end()};
}

std::string Number(const void* pointer) {
  return std::to_string(reinterpret_cast<std::uintptr_t>(pointer));
}

template <typename... Arguments>
std::string Call(const char* name, const Arguments&... arguments) {
  std::ostringstream call;
  call << name << '(';
  const char* separator = "";
  ((call << separator << arguments, separator = ", "), ...);
  call << ')';
  return call.str();
}

}  // namespace

HWND FakeBridge::WindowOf(int instance) {
  return reinterpret_cast<HWND>(kWindowOfFirst * static_cast<std::uintptr_t>(instance));
}

kzCefInstance* FakeBridge::Instance(int number) {
  return reinterpret_cast<kzCefInstance*>(static_cast<std::uintptr_t>(number));
}

std::vector<std::string> FakeBridge::calls() const {
  const std::scoped_lock lock(mutex_);
  return calls_;
}

void FakeBridge::ForgetCalls() {
  const std::scoped_lock lock(mutex_);
  calls_.clear();
}

void FakeBridge::SetHasBrowser(int instance, bool has_browser) {
  const std::scoped_lock lock(mutex_);
  has_browser_[Instance(instance)] = has_browser;
}

void FakeBridge::Record(const std::string& call) {
  const std::scoped_lock lock(mutex_);
  calls_.push_back(call);
}

bool FakeBridge::Shutdown() {
  Record("Shutdown()");
  return on_shutdown();
}

HWND FakeBridge::StartBrowser(HWND parent, const wchar_t* url) {
  Record(Call("StartBrowser", Number(parent), Text(url)));
  if (!parent) {
    return nullptr;
  }
  {
    const std::scoped_lock lock(mutex_);
    current_ = Instance(++last_instance_);
    has_browser_[current_] = true;
  }
  if (on_started) {
    on_started();
  }
  return parent;
}

HWND FakeBridge::GetWindowHandle(kzCefInstance* instance) {
  const std::scoped_lock lock(mutex_);
  const auto found = has_browser_.find(instance);
  return found != has_browser_.end() && found->second
             ? WindowOf(static_cast<int>(reinterpret_cast<std::uintptr_t>(instance)))
             : nullptr;
}

bool FakeBridge::LoadURL(const wchar_t* url, kzCefInstance* instance) {
  Record(Call("LoadURL", Text(url), Number(instance)));
  return succeeds;
}

std::wstring& FakeBridge::GetURL(std::wstring& url, kzCefInstance*) {
  return url = current_url;
}

bool FakeBridge::ExecuteJS(const wchar_t* script, kzCefInstance* instance) {
  Record(Call("ExecuteJS", Text(script), Number(instance)));
  return succeeds;
}

bool FakeBridge::AddJSHandler(const wchar_t* object_name,
                              IDispatch* object,
                              kzCefInstance* instance) {
  Record(Call("AddJSHandler", Text(object_name), Number(object), Number(instance)));
  if (on_script_handler) {
    on_script_handler();
  }
  return succeeds;
}

bool FakeBridge::RemoveJSHandler(const wchar_t* object_name,
                                 IDispatch* object,
                                 kzCefInstance* instance) {
  Record(Call("RemoveJSHandler", Text(object_name), Number(object), Number(instance)));
  return succeeds;
}

bool FakeBridge::ResizeBrowser(double width, double height, kzCefInstance* instance) {
  Record(Call("ResizeBrowser", width, height, Number(instance)));
  return succeeds;
}

kzCefInstance* FakeBridge::GetInstance() {
  const std::scoped_lock lock(mutex_);
  return current_;
}

void FakeBridge::SetInstance(kzCefInstance* instance) {
  const std::scoped_lock lock(mutex_);
  current_ = instance;
}

void FakeBridge::PrepareCookieAccess() {
  Record("PrepareCookieAccess()");
}

VARIANT FakeBridge::GetUrlCookies(const wchar_t* url) {
  Record(Call("GetUrlCookies", Text(url)));
  return on_cookies_read();
}

bool FakeBridge::SetUrlCookies(const wchar_t* url, const wchar_t* cookie_json) {
  Record(Call("SetUrlCookies", Text(url), Text(cookie_json)));
  if (on_cookie_set) {
    on_cookie_set(cookie_json);
  }
  return succeeds;
}

VARIANT FakeBridge::GetCookiesSync(bool all_cookies, const wchar_t* url) {
  Record(Call("GetCookiesSync", all_cookies, Text(url)));
  return on_cookies_read();
}

bool FakeBridge::Refresh(bool ignore_cache, kzCefInstance* instance) {
  Record(Call("Refresh", ignore_cache, Number(instance)));
  return succeeds && instance;
}

void FakeBridge::DestroyInstance(kzCefInstance* instance) {
  Record(Call("DestroyInstance", Number(instance)));
  const std::scoped_lock lock(mutex_);
  has_browser_.erase(instance);
  if (current_ == instance) {
    current_ = nullptr;
  }
}

bool FakeBridge::ResizeBrowserRect(double x,
                                   double y,
                                   double width,
                                   double height,
                                   kzCefInstance* instance) {
  Record(Call("ResizeBrowserRect", x, y, width, height, Number(instance)));
  return succeeds;
}

}  // namespace kzcef::testing
