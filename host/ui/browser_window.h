// A window of the host: address bar, Go, Refresh, the view and the list of notifications.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace kzhost {

// Used on the user-interface thread.
class BrowserWindow {
 public:
  // What the window tells its owner. The owner must not destroy the window inside such a call.
  class Delegate {
   public:
    virtual ~Delegate() = default;
    virtual void OnGo(const std::wstring& address) = 0;
    virtual void OnRefresh() = 0;
    virtual void OnViewResized(int width, int height) = 0;
    virtual void OnCloseRequested() = 0;
    // The server posted its message to the window.
    virtual void OnServerMessage(WPARAM wparam, LPARAM lparam) = 0;
  };

  // Shows a window whose view has the given size in pixels. Returns null when Windows refuses one.
  // A main window is marked as the one that wants the server's messages. `delegate` outlives the
  // window.
  static std::unique_ptr<BrowserWindow> Create(const std::wstring& title,
                                               int view_width,
                                               int view_height,
                                               bool is_main,
                                               Delegate* delegate);
  ~BrowserWindow();
  BrowserWindow(const BrowserWindow&) = delete;
  BrowserWindow& operator=(const BrowserWindow&) = delete;

  HWND hwnd() const { return window_; }
  // The parent for the browser.
  HWND view() const { return view_; }

  void ShowAddress(const std::wstring& address);
  void AppendLines(const std::vector<std::wstring>& lines);
  // Sizes the window so that the view gets this size.
  void ResizeView(int width, int height);
  // Brings the window in front of the host's other windows.
  void BringForward();
  // Asks for the window to be closed, as its close button does.
  void RequestClose();

 private:
  explicit BrowserWindow(Delegate* delegate) : delegate_(delegate) {}

  bool CreateControls();
  void Layout();
  std::wstring Address() const;
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  Delegate* delegate_;
  HWND window_ = nullptr;
  HWND address_ = nullptr;
  HWND go_ = nullptr;
  HWND refresh_ = nullptr;
  HWND view_ = nullptr;
  HWND list_ = nullptr;
};

}  // namespace kzhost
