// Addresses whose protocol is another application's.

#include "external_protocol.h"

#include <windows.h>

#include <objbase.h>
#include <shellapi.h>
#include <shlwapi.h>

#include <string>
#include <string_view>

#include "include/cef_task.h"

namespace cefbinding {
namespace {

bool HasApplication(const std::wstring& url) {
  const std::wstring scheme = url.substr(0, url.find(L':'));
  DWORD length = 0;
  // Without a buffer the answer is S_FALSE and the length of the command with its end.
  const HRESULT found = AssocQueryStringW(ASSOCF_IS_PROTOCOL, ASSOCSTR_COMMAND, scheme.c_str(),
                                          nullptr, nullptr, &length);
  return SUCCEEDED(found) && length > 1;
}

class OpenTask final : public CefTask {
 public:
  explicit OpenTask(std::wstring url) : url_(std::move(url)) {}

  void Execute() override {
    if (!HasApplication(url_)) {
      return;
    }
    // Some applications are started by way of COM.
    const HRESULT initialized = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    ShellExecuteW(nullptr, L"open", EscapedForCommand(url_).c_str(), nullptr, nullptr,
                  SW_SHOWNORMAL);
    if (SUCCEEDED(initialized)) {
      CoUninitialize();
    }
  }

 private:
  const std::wstring url_;

  IMPLEMENT_REFCOUNTING(OpenTask);
};

}  // namespace

void OpenExternally(const CefString& url) {
  CefPostTask(TID_FILE_USER_VISIBLE, new OpenTask(url.ToWString()));
}

std::wstring EscapedForCommand(const std::wstring& url) {
  static constexpr std::wstring_view kPlain =
      L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.!~*'();/?:@&=+$,#[]%";
  static constexpr wchar_t kHex[] = L"0123456789ABCDEF";
  std::wstring result;
  for (const wchar_t c : url) {
    // The engine's addresses are ASCII, anything else in them being escaped already.
    if (c > 0x7F || kPlain.find(c) != std::wstring_view::npos) {
      result += c;
    } else {
      result += L'%';
      result += kHex[c >> 4];
      result += kHex[c & 0xF];
    }
  }
  return result;
}

}  // namespace cefbinding
