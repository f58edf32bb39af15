// A host that ends without ExitCef, in one of the ways in which programs end.
//
// Usage: abrupt_host SERVER CACHE URL WAY. An empty URL stands for no browser. Prints "ready" when
// the engine runs and the page has its address, then ends the way named, with the status 7 where
// the way lets a program choose.
#include <windows.h>

#include <objbase.h>
#include <wrl/client.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

#include "KZCEFComWrapper.h"

namespace {

using Microsoft::WRL::ComPtr;

constexpr UINT kStatus = 7;
constexpr DWORD kAskAgain = 50;

ComPtr<IKZCEFComApplication> CreateApplication(const wchar_t* server) {
  ComPtr<IKZCEFComApplication> application;
  const HMODULE module = LoadLibraryExW(server, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  const auto get_class = reinterpret_cast<LPFNGETCLASSOBJECT>(
      module ? GetProcAddress(module, "DllGetClassObject") : nullptr);
  ComPtr<IClassFactory> factory;
  if (get_class &&
      SUCCEEDED(get_class(__uuidof(KZCEFComApplication), IID_PPV_ARGS(factory.GetAddressOf())))) {
    factory->CreateInstance(nullptr, IID_PPV_ARGS(application.GetAddressOf()));
  }
  return application;
}

bool StartEngine(IKZCEFComApplication* application, const wchar_t* cache) {
  ComPtr<IKZCEFComSettings> settings;
  if (FAILED(application->GetKzCEFComSettings(nullptr, settings.GetAddressOf()))) {
    return false;
  }
  const BSTR path = SysAllocString(cache);
  settings->put_CachePath(path);
  SysFreeString(path);
  settings->put_MultiThreadedMessageLoop(VARIANT_TRUE);
  return application->InitCef(nullptr, settings.Get()) == S_OK;
}

void HandleMessages(DWORD wait) {
  MsgWaitForMultipleObjects(0, nullptr, FALSE, wait, QS_ALLINPUT);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    DispatchMessageW(&message);
  }
}

bool HasAddress(IKZCEFComBrowser* browser) {
  BSTR address = nullptr;
  browser->get_URL(&address);
  const bool has_address = SysStringLen(address) > 0;
  SysFreeString(address);
  return has_address;
}

// Returns once the page has its address; the browser stays, whatever becomes of its object.
bool ShowPage(IKZCEFComApplication* application, const wchar_t* url) {
  IKZCEFComBrowser* browser = nullptr;
  if (FAILED(application->GetKzCEFBrowser(nullptr, 0, &browser))) {
    return false;
  }
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"abrupt host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600,
                      400, nullptr, nullptr, nullptr, nullptr);
  const BSTR address = SysAllocString(url);
  browser->put_URL(address);
  SysFreeString(address);
  browser->StartBrowser(static_cast<LONG_PTR>(reinterpret_cast<INT_PTR>(window)));
  while (!HasAddress(browser)) {
    HandleMessages(kAskAgain);
  }
  return true;
}

[[noreturn]] void WaitForTheEnd() {
  for (;;) {
    Sleep(INFINITE);
  }
}

int End(std::wstring_view way) {
  if (way == L"exit") {
    std::exit(kStatus);
  }
  if (way == L"_exit") {
    _exit(kStatus);
  }
  if (way == L"ExitProcess") {
    ExitProcess(kStatus);
  }
  if (way == L"ExitProcess on another thread") {
    std::thread([] { ExitProcess(kStatus); }).detach();
    WaitForTheEnd();
  }
  if (way == L"TerminateProcess") {
    TerminateProcess(GetCurrentProcess(), kStatus);
  }
  if (way == L"FreeLibrary") {
    FreeLibrary(GetModuleHandleW(L"KZCEFComWrapper.dll"));
    // Long enough for the engine's threads to come by.
    HandleMessages(kAskAgain);
  }
  if (way == L"wait") {
    WaitForTheEnd();
  }
  return kStatus;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 5) {
    return 1;
  }
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  // Neither is released: these hosts clean nothing up.
  IKZCEFComApplication* const application = CreateApplication(arguments[1]).Detach();
  if (!application || !StartEngine(application, arguments[2])) {
    return 2;
  }
  if (*arguments[3] && !ShowPage(application, arguments[3])) {
    return 3;
  }
  std::puts("ready");
  std::fflush(stdout);
  return End(arguments[4]);
}
