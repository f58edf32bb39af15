// Everything but cookies, which are in kz_cef_bridge_cookies.cpp.
#include "bridge/kz_cef_bridge_impl.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

#include "bridge/argument_text.h"
#include "include/cef_app.h"
#include "include/wrapper/cef_closure_task.h"
#include "runtime/cache_directory.h"
#include "runtime/kz_cef_instance.h"
#include "runtime/pending_requests.h"
#include "utils/never_destroyed.h"

namespace kzcef {
namespace {

// Toward zero. A number out of range becomes the nearest one in range, and no number becomes 0.
int32_t TruncateToInt32(double value) {
  if (std::isnan(value)) {
    return 0;
  }
  if (value <= std::numeric_limits<int32_t>::min()) {
    return std::numeric_limits<int32_t>::min();
  }
  if (value >= std::numeric_limits<int32_t>::max()) {
    return std::numeric_limits<int32_t>::max();
  }
  return static_cast<int32_t>(value);
}

}  // namespace

kzCefBridgeImpl& BridgeSingleton() {
  static const NeverDestroyed<kzCefBridgeImpl> bridge;
  return *bridge;
}

bool kzCefBridgeImpl::Shutdown() {
  try {
    // CEF wants its objects back before it ends; without the manager no cookie is set any more.
    cookie_manager_ = nullptr;
    EndPendingRequests();
    CefShutdown();
    ReleaseCacheLock();
    return true;
  } catch (...) {
    return false;
  }
}

void kzCefBridgeImpl::Reserved1() {}

int kzCefBridgeImpl::Reserved2() {
  return 0;
}

HWND kzCefBridgeImpl::StartBrowser(HWND parent, const wchar_t* url) {
  if (!parent) {
    return nullptr;
  }
  try {
    // Current before its browser is asked for, and also when that fails.
    current_instance_ = std::make_unique<kzCefInstance>().release();
    return current_instance_->CreateBrowser(parent, ToCefString(url)) ? parent : nullptr;
  } catch (...) {
    return nullptr;
  }
}

kzCefInstance* kzCefBridgeImpl::StartPopupBrowser(HWND parent,
                                                  const wchar_t* url,
                                                  kzCefClientHandler* handler) {
  if (!parent || !handler) {
    return nullptr;
  }
  try {
    // Not freed on failure: by then it may already be the handler's owner.
    kzCefInstance* const instance = std::make_unique<kzCefInstance>().release();
    return instance->CreateBrowserWithHandler(parent, ToCefString(url), handler) ? instance
                                                                                 : nullptr;
  } catch (...) {
    return nullptr;
  }
}

HWND kzCefBridgeImpl::GetWindowHandle(kzCefInstance* instance) {
  return instance ? instance->GetWindowHandle() : nullptr;
}

bool kzCefBridgeImpl::LoadURL(const wchar_t* url, kzCefInstance* instance) {
  if (!instance) {
    return false;
  }
  instance->LoadURL(ToCefString(url));
  return true;
}

std::wstring& kzCefBridgeImpl::GetURL(std::wstring& url, kzCefInstance* instance) {
  url = instance ? instance->GetURL() : std::wstring();
  return url;
}

bool kzCefBridgeImpl::ExecuteJS(const wchar_t* script, kzCefInstance* instance) {
  if (!instance) {
    return false;
  }
  instance->ExecuteJS(ToCefString(script));
  return true;
}

bool kzCefBridgeImpl::AddJSHandler(const wchar_t* object_name,
                                   IDispatch* object,
                                   kzCefInstance* instance) {
  if (!instance) {
    return false;
  }
  instance->AddJSHandler(ToCefString(object_name), object);
  return true;
}

bool kzCefBridgeImpl::RemoveJSHandler(const wchar_t* object_name,
                                      IDispatch* object,
                                      kzCefInstance* instance) {
  if (!instance) {
    return false;
  }
  instance->RemoveJSHandler(ToCefString(object_name), object);
  return true;
}

bool kzCefBridgeImpl::ResizeBrowser(double width, double height, kzCefInstance* instance) {
  return ResizeBrowserRect(0, 0, width, height, instance);
}

kzCefInstance* kzCefBridgeImpl::GetInstance() {
  return current_instance_;
}

void kzCefBridgeImpl::SetInstance(kzCefInstance* instance) {
  current_instance_ = instance;
}

bool kzCefBridgeImpl::Refresh(bool ignore_cache, kzCefInstance* instance) {
  return instance && instance->Refresh(ignore_cache);
}

void kzCefBridgeImpl::DestroyInstance(kzCefInstance* instance) {
  if (instance == current_instance_) {
    current_instance_ = nullptr;
  }
  if (!instance) {
    return;
  }
  std::unique_ptr<kzCefInstance> owned(instance);
  owned->DetachFromHandler();
  // CEF's UI thread may be inside a callback of the instance at this moment; a task of that thread
  // is not. The instance is freed with the task, at once when CEF is not running.
  CefPostTask(TID_UI, base::BindOnce([](std::unique_ptr<kzCefInstance>) {}, std::move(owned)));
}

bool kzCefBridgeImpl::ResizeBrowserRect(double x,
                                        double y,
                                        double width,
                                        double height,
                                        kzCefInstance* instance) {
  if (!instance) {
    return false;
  }
  instance->SetRectangle(CefRect(TruncateToInt32(x), TruncateToInt32(y), TruncateToInt32(width),
                                 TruncateToInt32(height)));
  return true;
}

}  // namespace kzcef
