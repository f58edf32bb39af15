// One embedded browser: its creation in a host window and the operations on it.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <mutex>
#include <string>
#include <vector>

#include "handler/kz_cef_client_handler.h"

namespace kzcef {

// Owns the browser's client handler and is its delegate.
//
// The operations are called on the host's thread, the delegate's callbacks arrive on CEF's UI
// thread. No foreign code is called while the instance's own lock is held. An instance whose
// browser exists must be freed on CEF's UI thread, or where that thread cannot be inside a callback
// of it.
class kzCefInstance final : public kzCefClientHandler::Delegate {
 public:
  enum class ScriptObjectMode { kRemove = 0, kAdd = 1 };

  kzCefInstance() = default;
  ~kzCefInstance() override;
  kzCefInstance(const kzCefInstance&) = delete;
  kzCefInstance& operator=(const kzCefInstance&) = delete;

  // Asks CEF for a browser that fills the client area of `parent`, with a client handler of its
  // own. Returns 0 without a parent, otherwise always 1: whether there will be a browser shows in
  // OnBrowserCreated.
  int CreateBrowser(HWND parent, const CefString& url);
  // The same with an existing client handler, which this instance owns from then on.
  // Returns 0 without a handler, too.
  int CreateBrowserWithHandler(HWND parent,
                               const CefString& url,
                               CefRefPtr<kzCefClientHandler> handler);

  // Runs `script` in the main frame, as if it came from the frame's URL. Returns 0 without a
  // browser, otherwise 1.
  int ExecuteJS(const CefString& script);
  // Returns the main frame's URL; empty without a browser.
  std::wstring GetURL() const;
  // Loads `url` in the main frame. Returns 0 without a browser, otherwise 1.
  int LoadURL(const CefString& url);
  // Reloads the page. Returns false without a browser.
  bool Refresh(bool ignore_cache);
  // Returns the browser's window; null without a browser.
  HWND GetWindowHandle() const;
  // Moves the browser's window within its parent (pixels). The rectangle is kept, and applied to a
  // browser that comes later unless its width or height is zero.
  void SetRectangle(const CefRect& rectangle);

  // Offers `object` to the page under a script name, or withdraws it. The object is marshalled to
  // the page's process by the calling thread: the host's, or CEF's UI thread for the handlers that
  // a browser object kept. Returns 0, and sends nothing, without a browser or when `object` is null
  // or cannot be marshalled; otherwise returns 1.
  int AddJSHandler(const CefString& name, IUnknown* object);
  int RemoveJSHandler(const CefString& name, IUnknown* object);
  int RegisterScriptObject(ScriptObjectMode mode, const CefString& name, IUnknown* object);

  // Receives no more callbacks from the client handler. The browser and the handler are kept.
  void DetachFromHandler();

  // kzCefClientHandler::Delegate
  void OnBrowserCreated(CefRefPtr<CefBrowser> browser) override;
  void OnBrowserClosing(CefRefPtr<CefBrowser>) override {}
  // Releases the browser and the handler; does nothing when a popup of the browser closes.
  void OnBrowserClosed(CefRefPtr<CefBrowser> browser) override;
  void OnSetAddress(const std::string&) override {}
  void OnSetTitle(const std::string&) override {}
  void OnSetFullscreen(bool) override {}
  void OnAutoResize(const CefSize&) override {}
  // Tells the host.
  void OnSetLoadingState(bool is_loading, bool can_go_back, bool can_go_forward) override;
  void OnSetDraggableRegions(const std::vector<CefDraggableRegion>&) override {}

 private:
  CefRefPtr<CefBrowser> browser() const;
  CefRefPtr<CefFrame> main_frame() const;

  // From CreateBrowser to the closing of the browser.
  CefRefPtr<kzCefClientHandler> client_handler_;
  // From OnBrowserCreated to OnBrowserClosed.
  CefRefPtr<CefBrowser> browser_;
  // Reserved: nothing writes it.
  std::wstring text_;
  // For a browser yet to come. All zero stands for its parent's client area.
  CefRect pending_rectangle_;
  // Guards the references and the rectangle.
  mutable std::mutex mutex_;
};

}  // namespace kzcef
