// Creates the browser, passes the operations on to CEF, and follows the browser's life. Each
// operation takes its own reference to the browser under the lock and then works without the lock.

#include "runtime/kz_cef_instance.h"

#include <utility>

#include "handler/contained_notification.h"
#include "include/wrapper/cef_helpers.h"
#include "runtime/pending_requests.h"
#include "runtime/script_object.h"

namespace kzcef {
namespace {

VARIANT_BOOL ToVariantBool(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

void MoveWindowOf(const CefRefPtr<CefBrowser>& browser, const CefRect& rectangle) {
  if (const HWND window = browser->GetHost()->GetWindowHandle()) {
    SetWindowPos(window, nullptr, rectangle.x, rectangle.y, rectangle.width, rectangle.height,
                 SWP_NOZORDER);
  }
}

}  // namespace

kzCefInstance::~kzCefInstance() {
  DetachFromHandler();
}

int kzCefInstance::CreateBrowser(HWND parent, const CefString& url) {
  if (!parent) {
    return 0;
  }
  const CefRefPtr<kzCefClientHandler> handler = new kzCefClientHandler(this, false, url.ToString());
  handler->SetDispatcher(new PendingRequests());
  return CreateBrowserWithHandler(parent, url, handler);
}

int kzCefInstance::CreateBrowserWithHandler(HWND parent,
                                            const CefString& url,
                                            CefRefPtr<kzCefClientHandler> handler) {
  if (!parent || !handler) {
    return 0;
  }
  RECT client = {};
  GetClientRect(parent, &client);
  CefWindowInfo window_info;
  window_info.SetAsChild(parent, CefRect(client.left, client.top, client.right - client.left,
                                         client.bottom - client.top));
  handler->SetDelegate(this);
  CefRefPtr<kzCefClientHandler> previous = handler;
  {
    const std::lock_guard lock(mutex_);
    client_handler_.swap(previous);
  }
  if (previous && previous != handler) {
    previous->DetachDelegate(this);
  }
  handler->CreateBrowser(window_info, CefBrowserSettings(), url);
  return 1;
}

int kzCefInstance::ExecuteJS(const CefString& script) {
  if (!browser()) {
    return 0;
  }
  if (const CefRefPtr<CefFrame> frame = main_frame()) {
    frame->ExecuteJavaScript(script, frame->GetURL(), 0);
  }
  return 1;
}

std::wstring kzCefInstance::GetURL() const {
  const CefRefPtr<CefFrame> frame = main_frame();
  return frame ? frame->GetURL().ToWString() : std::wstring();
}

int kzCefInstance::LoadURL(const CefString& url) {
  if (!browser()) {
    return 0;
  }
  if (const CefRefPtr<CefFrame> frame = main_frame()) {
    frame->LoadURL(url);
  }
  return 1;
}

bool kzCefInstance::Refresh(bool ignore_cache) {
  const CefRefPtr<CefBrowser> current = browser();
  if (!current) {
    return false;
  }
  if (ignore_cache) {
    current->ReloadIgnoreCache();
  } else {
    current->Reload();
  }
  return true;
}

HWND kzCefInstance::GetWindowHandle() const {
  const CefRefPtr<CefBrowser> current = browser();
  return current ? current->GetHost()->GetWindowHandle() : nullptr;
}

void kzCefInstance::SetRectangle(const CefRect& rectangle) {
  CefRefPtr<CefBrowser> current;
  {
    // Together, so that a browser that appears meanwhile sees either the old rectangle and is moved
    // here, or the new one.
    const std::lock_guard lock(mutex_);
    pending_rectangle_ = rectangle;
    current = browser_;
  }
  if (current) {
    MoveWindowOf(current, rectangle);
  }
}

int kzCefInstance::AddJSHandler(const CefString& name, IUnknown* object) {
  return RegisterScriptObject(ScriptObjectMode::kAdd, name, object);
}

int kzCefInstance::RemoveJSHandler(const CefString& name, IUnknown* object) {
  return RegisterScriptObject(ScriptObjectMode::kRemove, name, object);
}

int kzCefInstance::RegisterScriptObject(ScriptObjectMode mode,
                                        const CefString& name,
                                        IUnknown* object) {
  // The frame comes first: what is marshalled must also be sent, or nobody releases it.
  const CefRefPtr<CefFrame> frame = main_frame();
  if (!frame) {
    return 0;
  }
  const std::optional<std::vector<uint8_t>> marshalled = MarshalScriptObject(object);
  if (!marshalled) {
    return 0;
  }
  const char* const message_name =
      mode == ScriptObjectMode::kAdd ? "KZAddHandler" : "KZRemoveHandler";
  frame->SendProcessMessage(PID_RENDERER, ScriptObjectMessage(message_name, name, *marshalled));
  return 1;
}

void kzCefInstance::DetachFromHandler() {
  CefRefPtr<kzCefClientHandler> handler;
  {
    const std::lock_guard lock(mutex_);
    handler = client_handler_;
  }
  if (handler) {
    handler->DetachDelegate(this);
  }
}

void kzCefInstance::OnBrowserCreated(CefRefPtr<CefBrowser> browser) {
  CEF_REQUIRE_UI_THREAD();
  CefRefPtr<CefBrowser> previous = browser;
  CefRect rectangle;
  {
    const std::lock_guard lock(mutex_);
    browser_.swap(previous);
    rectangle = pending_rectangle_;
  }
  if (rectangle.width != 0 && rectangle.height != 0) {
    MoveWindowOf(browser, rectangle);
  }
}

void kzCefInstance::OnBrowserClosed(CefRefPtr<CefBrowser> browser) {
  CEF_REQUIRE_UI_THREAD();
  CefRefPtr<CefBrowser> held = this->browser();
  if (!held || held->GetIdentifier() != browser->GetIdentifier()) {
    return;
  }
  CefRefPtr<kzCefClientHandler> handler;
  {
    const std::lock_guard lock(mutex_);
    browser_ = nullptr;
    client_handler_.swap(handler);
  }
  if (handler) {
    handler->DetachDelegate(this);
  }
}

void kzCefInstance::OnSetLoadingState(bool is_loading, bool can_go_back, bool can_go_forward) {
  CEF_REQUIRE_UI_THREAD();
  const CefRefPtr<CefBrowser> current = browser();
  if (!current) {
    return;
  }
  // The host may free this instance from inside the notification, so nothing of it is used there.
  RaiseContained(current, [=](HostNotifications& host, HWND window) {
    host.LoadingStateChangeNotify(window, ToVariantBool(is_loading), ToVariantBool(can_go_back),
                                  ToVariantBool(can_go_forward));
  });
}

CefRefPtr<CefBrowser> kzCefInstance::browser() const {
  const std::lock_guard lock(mutex_);
  return browser_;
}

CefRefPtr<CefFrame> kzCefInstance::main_frame() const {
  const CefRefPtr<CefBrowser> current = browser();
  return current ? current->GetMainFrame() : nullptr;
}

}  // namespace kzcef
