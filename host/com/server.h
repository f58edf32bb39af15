// The server's DLL as the host reaches it: its classes, its type library and its one export for
// hosts.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <string>

namespace kzhost {

// Used on the user-interface thread.
class Server {
 public:
  // With an empty path the classes come from the registry, else from the DLL at `dll_path`, which
  // needs no registration.
  explicit Server(std::wstring dll_path);

  // Creates the application object, and with it loads the server.
  HRESULT CreateApplication(Microsoft::WRL::ComPtr<IDispatch>& application);

  // Creates an object of the class that the type library calls `name`. The server must be loaded.
  HRESULT CreateByName(const std::wstring& name, Microsoft::WRL::ComPtr<IDispatch>& object);

  // The type information of an interface of the library. The server must be loaded.
  HRESULT GetTypeInfo(REFIID interface_id, Microsoft::WRL::ComPtr<ITypeInfo>& information);

  // Hands the message that the server posted to the host's main window back to it.
  static void HandlePostedMessage(WPARAM request, LPARAM handler);

  // The message, and the property that marks the window which wants it.
  static constexpr UINT kPostedMessage = WM_APP + 0x142;
  static constexpr wchar_t kMainWindowProperty[] = L"KZCEFComWrapper.MainWindow";

 private:
  HRESULT Create(REFCLSID class_id, Microsoft::WRL::ComPtr<IDispatch>& object);
  HRESULT CreateFromDll(REFCLSID class_id, Microsoft::WRL::ComPtr<IDispatch>& object);
  HRESULT LoadLibraryInformation();

  std::wstring dll_path_;
  Microsoft::WRL::ComPtr<ITypeLib> type_library_;
};

}  // namespace kzhost
