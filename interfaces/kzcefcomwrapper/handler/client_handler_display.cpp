// What a page shows of itself: address, title, favicon, full screen, size, cursor, console.
#include "handler/client_download_image_callback.h"
#include "handler/console_log.h"
#include "handler/console_record.h"
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {

void kzCefClientHandler::OnAddressChange(CefRefPtr<CefBrowser> browser,
                                         CefRefPtr<CefFrame> frame,
                                         const CefString& url) {
  CEF_REQUIRE_UI_THREAD();
  Contained([&] {
    if (Delegate* const owner = delegate(); owner && frame->IsMain()) {
      owner->OnSetAddress(url.ToString());
    }
  });
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    host.AddressChangeNotify(window, url.ToWString());
  });
}

void kzCefClientHandler::OnTitleChange(CefRefPtr<CefBrowser> /*browser*/, const CefString& title) {
  CEF_REQUIRE_UI_THREAD();
  Contained([&] {
    if (Delegate* const owner = delegate()) {
      owner->OnSetTitle(title.ToString());
    }
  });
}

void kzCefClientHandler::OnFaviconURLChange(CefRefPtr<CefBrowser> browser,
                                            const std::vector<CefString>& icon_urls) {
  CEF_REQUIRE_UI_THREAD();
  if (icon_urls.empty() || !download_favicon_images_) {
    return;
  }
  constexpr uint32_t kFaviconSize = 16;
  Contained([&] {
    browser->GetHost()->DownloadImage(icon_urls.front(), /*is_favicon=*/true, kFaviconSize,
                                      /*bypass_cache=*/false,
                                      new ClientDownloadImageCallback(this));
  });
}

void kzCefClientHandler::OnFullscreenModeChange(CefRefPtr<CefBrowser> /*browser*/,
                                                bool fullscreen) {
  CEF_REQUIRE_UI_THREAD();
  if (Delegate* const owner = delegate()) {
    owner->OnSetFullscreen(fullscreen);
  }
}

bool kzCefClientHandler::OnConsoleMessage(CefRefPtr<CefBrowser> /*browser*/,
                                          cef_log_severity_t level,
                                          const CefString& message,
                                          const CefString& source,
                                          int line) {
  CEF_REQUIRE_UI_THREAD();
  Contained([&] {
    if (IsConsoleLogOn() &&
        AppendToConsoleLog(console_log_file_,
                           ConsoleRecord(level, message.ToString(), source.ToString(), line))) {
      first_console_message_ = false;
    }
  });
  return false;
}

bool kzCefClientHandler::OnAutoResize(CefRefPtr<CefBrowser> /*browser*/, const CefSize& new_size) {
  CEF_REQUIRE_UI_THREAD();
  if (Delegate* const owner = delegate()) {
    owner->OnAutoResize(new_size);
  }
  return true;
}

bool kzCefClientHandler::OnCursorChange(CefRefPtr<CefBrowser> /*browser*/,
                                        CefCursorHandle /*cursor*/,
                                        cef_cursor_type_t /*type*/,
                                        const CefCursorInfo& /*custom_cursor_info*/) {
  CEF_REQUIRE_UI_THREAD();
  return mouse_cursor_change_disabled_;
}

}  // namespace kzcef
