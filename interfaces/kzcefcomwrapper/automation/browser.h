// One embedded browser in one window of the host.
#pragma once

#include <windows.h>

#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KZCEFComWrapper.h"
#include "automation/browser_life.h"
#include "com/com_object.h"

namespace kzcef {

class kzCefBridge;
class kzCefInstance;

// The script handlers of a browser that a page is to have, in order of their names.
struct ScriptHandlerOffer {
  // The engine's UI thread, which keeps the instance alive, and outside BrowserLife::With:
  // marshalling runs the objects' own code.
  void Send() const;

  kzCefBridge* bridge = nullptr;
  kzCefInstance* instance = nullptr;
  // Without references.
  std::vector<std::pair<std::wstring, IDispatch*>> handlers;
};

// A thin front over the bridge: every member is one operation on this browser's instance. An object
// made before the engine was started has no bridge for its whole life, and its members do nothing.
// No argument is checked; failures show as S_FALSE where a member says so. Called on the host's
// thread, but for the two operations of the dispatchers.
class CKZCEFComBrowser : public CoClass<IKZCEFComBrowser> {
 public:
  CKZCEFComBrowser();

  // The members below that do nothing without a bridge answer S_FALSE then, and S_OK otherwise.

  // The window of the engine's browser, 0 while there is none. Untouched without a bridge.
  HRESULT STDMETHODCALLTYPE GetWindowHandle(__int64* window) override;
  // S_OK always; without a bridge an empty text, not the stored one.
  HRESULT STDMETHODCALLTYPE get_URL(BSTR* url) override;
  // Keeps the text for StartBrowser, and loads it when the browser exists already: S_OK exactly
  // then.
  HRESULT STDMETHODCALLTYPE put_URL(BSTR url) override;
  HRESULT STDMETHODCALLTYPE ExecuteJS(BSTR script) override;
  // Offers `object` to the page as `name`; before the browser was started, keeps the pair, without
  // a reference on the object, until the engine reports the browser or an address change.
  HRESULT STDMETHODCALLTYPE AddJSHandler(BSTR name, IDispatch* object) override;
  HRESULT STDMETHODCALLTYPE RemoveJSHandler(BSTR name, IDispatch* object) override;
  // Opens the stored URL in a browser that fills the window `parent`. S_OK always. A second call
  // makes a second browser and forgets the first.
  HRESULT STDMETHODCALLTYPE StartBrowser(__int64 parent) override;
  // Pixels, truncated toward zero.
  HRESULT STDMETHODCALLTYPE ResizeBrowser(double width, double height) override;
  HRESULT STDMETHODCALLTYPE get_PopupUserBrowser(VARIANT_BOOL* popup) override;
  HRESULT STDMETHODCALLTYPE put_PopupUserBrowser(VARIANT_BOOL popup) override;
  // S_FALSE when the page is reloaded, S_OK when nothing happened: hosts rely on the inversion.
  HRESULT STDMETHODCALLTYPE Refresh(VARIANT_BOOL ignore_cache) override;
  HRESULT STDMETHODCALLTYPE ResizeBrowserRect(double x,
                                              double y,
                                              double width,
                                              double height) override;

  // For the dispatchers, on the engine's threads, inside BrowserLife::With:

  // The window of the engine's browser, or null.
  HWND WindowHandle() const;
  // PopupUserBrowser.
  VARIANT_BOOL IsPopupForDesktop() const { return popup_user_browser_; }
  // What is to be offered to the page; nothing without a bridge or before StartBrowser. The
  // handlers stay kept, as every new document needs them again.
  ScriptHandlerOffer PendingScriptHandlers() const;

  // Gives the instance back and leaves the registry; nobody without a reference gets here any more.
  void FinalRelease() noexcept;

 protected:
  ~CKZCEFComBrowser() = default;

 private:
  kzCefBridge* bridge_;
  kzCefInstance* instance_ = nullptr;
  HWND window_ = nullptr;
  // Written on the host's thread, read on the engine's.
  std::atomic<VARIANT_BOOL> popup_user_browser_ = VARIANT_FALSE;
  std::wstring url_;
  std::map<std::wstring, IDispatch*> pending_script_handlers_;
  const std::shared_ptr<BrowserLife> life_;
};

}  // namespace kzcef
