// The client handler itself: its owner, its dispatcher, and the getters by which CEF finds the
// handlers. Each group of callbacks has a file client_handler_*.cpp of its own.

#include "handler/kz_cef_client_handler.h"

#include <utility>

#include "handler/posted_message.h"

namespace kzcef {

kzCefClientHandler::kzCefClientHandler(Delegate* delegate,
                                       bool creation_flag,
                                       const std::string& startup_url)
    : creation_flag_(creation_flag),
      startup_url_(startup_url),
      resource_manager_(new CefResourceManager()),
      delegate_(delegate) {}

kzCefClientHandler::~kzCefClientHandler() {
  if (dispatcher_) {
    RememberDispatcher(this, nullptr);
  }
}

bool kzCefClientHandler::CreateBrowser(const CefWindowInfo& window_info,
                                       const CefBrowserSettings& settings,
                                       const CefString& url) {
  return CefBrowserHost::CreateBrowser(window_info, this, url, settings, nullptr, nullptr);
}

void kzCefClientHandler::DetachDelegate(Delegate* delegate) {
  delegate_.compare_exchange_strong(delegate, nullptr);
}

void kzCefClientHandler::SetDispatcher(CefRefPtr<HostThreadDispatcher> dispatcher) {
  RememberDispatcher(this, dispatcher);
  dispatcher_ = std::move(dispatcher);
}

CefRefPtr<CefContextMenuHandler> kzCefClientHandler::GetContextMenuHandler() {
  return this;
}

CefRefPtr<CefDisplayHandler> kzCefClientHandler::GetDisplayHandler() {
  return this;
}

CefRefPtr<CefDownloadHandler> kzCefClientHandler::GetDownloadHandler() {
  return this;
}

CefRefPtr<CefDragHandler> kzCefClientHandler::GetDragHandler() {
  return this;
}

CefRefPtr<CefFocusHandler> kzCefClientHandler::GetFocusHandler() {
  return this;
}

CefRefPtr<CefKeyboardHandler> kzCefClientHandler::GetKeyboardHandler() {
  return this;
}

CefRefPtr<CefLifeSpanHandler> kzCefClientHandler::GetLifeSpanHandler() {
  return this;
}

CefRefPtr<CefLoadHandler> kzCefClientHandler::GetLoadHandler() {
  return this;
}

CefRefPtr<CefRequestHandler> kzCefClientHandler::GetRequestHandler() {
  return this;
}

}  // namespace kzcef
