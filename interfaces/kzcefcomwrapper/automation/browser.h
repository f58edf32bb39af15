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
  // Called on the engine's UI thread, which keeps the instance alive, and outside
  // BrowserLife::With, because marshalling runs the objects' own code.
  void Send() const;

  kzCefBridge* bridge = nullptr;
  kzCefInstance* instance = nullptr;
  // Without references.
  std::vector<std::pair<std::wstring, IDispatch*>> handlers;
};

// A thin layer over the bridge: every member is one operation on this browser's instance. An object
// made before the engine was started never has a bridge, and its members do nothing. No argument is
// checked; failures show as S_FALSE where a member's description says so. Called on the host's
// thread, except for the operations for the dispatchers.
class CKZCEFComBrowser : public CoClass<IKZCEFComBrowser> {
 public:
  CKZCEFComBrowser();

  // The members below that do nothing without a bridge return S_FALSE then, and S_OK otherwise.

  // Writes the window of the engine's browser to `window`, 0 while there is none; nothing without a
  // bridge.
  HRESULT STDMETHODCALLTYPE GetWindowHandle(__int64* window) override;
  // Always returns S_OK. Without a bridge the text is empty, not the stored one.
  HRESULT STDMETHODCALLTYPE get_URL(BSTR* url) override;
  // Keeps the text for StartBrowser. If the browser exists already, also loads it and returns S_OK;
  // otherwise returns S_FALSE.
  HRESULT STDMETHODCALLTYPE put_URL(BSTR url) override;
  HRESULT STDMETHODCALLTYPE ExecuteJS(BSTR script) override;
  // Offers `object` to the page as `name`. Before the browser is started, keeps the pair, without a
  // reference to the object, until the engine reports the browser or an address change.
  HRESULT STDMETHODCALLTYPE AddJSHandler(BSTR name, IDispatch* object) override;
  HRESULT STDMETHODCALLTYPE RemoveJSHandler(BSTR name, IDispatch* object) override;
  // Opens the stored URL in a browser that fills the window `parent`. Always returns S_OK. A second
  // call makes a second browser and forgets the first.
  HRESULT STDMETHODCALLTYPE StartBrowser(__int64 parent) override;
  // Pixels, truncated toward zero.
  HRESULT STDMETHODCALLTYPE ResizeBrowser(double width, double height) override;
  HRESULT STDMETHODCALLTYPE get_PopupUserBrowser(VARIANT_BOOL* popup) override;
  HRESULT STDMETHODCALLTYPE put_PopupUserBrowser(VARIANT_BOOL popup) override;
  // Returns S_FALSE when the page is reloaded and S_OK when nothing happened: hosts rely on the
  // inversion.
  HRESULT STDMETHODCALLTYPE Refresh(VARIANT_BOOL ignore_cache) override;
  HRESULT STDMETHODCALLTYPE ResizeBrowserRect(double x,
                                              double y,
                                              double width,
                                              double height) override;

  // For the dispatchers, on the engine's threads, inside BrowserLife::With:

  // Returns the window of the engine's browser, or null.
  HWND WindowHandle() const;
  // PopupUserBrowser.
  VARIANT_BOOL IsPopupForDesktop() const { return popup_user_browser_; }
  // Returns what is to be offered to the page; nothing without a bridge or before StartBrowser. The
  // handlers are kept, as every new document needs them again.
  ScriptHandlerOffer PendingScriptHandlers() const;

  // Gives the instance back and leaves the registry. From then on nobody reaches the object without
  // holding a reference.
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
