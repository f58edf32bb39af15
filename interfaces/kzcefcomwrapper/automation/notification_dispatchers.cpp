// The dispatchers of KZCEFCom: one walk over the handlers for each notification.

#include <comdef.h>
#include <wrl/client.h>

#include <optional>
#include <utility>

#include "KZCEFComWrapper.h"
#include "automation/browser.h"
#include "automation/browser_life.h"
#include "automation/kzcef_com.h"
#include "com/text.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;

__int64 HandleValue(HWND window) {
  return reinterpret_cast<__int64>(window);
}

// The handler's own copy of a text, the same for all handlers of a walk. An empty text is an empty
// BSTR and not a null one. Throws _com_error with E_OUTOFMEMORY.
UniqueBstr NotificationText(const std::wstring& text) {
  UniqueBstr copy(NewBstr(text));
  if (!copy) {
    _com_issue_error(E_OUTOFMEMORY);
  }
  return copy;
}

}  // namespace

// Whether the pair's browser is the one in `window`. A browser that is gone or is none serves no
// window. With `popup`, every browser examined leaves its flag there, whether it matches or not.
bool KZCEFCom::Serves(const Pair& pair, HWND window, VARIANT_BOOL* popup) {
  if (pair.browser_life) {
    // One of the library's own, which need not be asked by way of COM.
    bool matches = false;
    pair.browser_life->With([&](const CKZCEFComBrowser& browser) {
      if (popup) {
        *popup = browser.IsPopupForDesktop();
      }
      matches = browser.WindowHandle() == window;
    });
    return matches;
  }
  ComPtr<IKZCEFComBrowser> browser;
  if (!pair.browser || FAILED(pair.browser->QueryInterface(IID_PPV_ARGS(browser.GetAddressOf()))) ||
      !browser) {
    return false;
  }
  __int64 handle = 0;
  browser->GetWindowHandle(&handle);
  if (popup) {
    browser->get_PopupUserBrowser(popup);
  }
  return handle == HandleValue(window);
}

// Calls `notify(Interface&)` on every handler of the browser in `window` that has the interface,
// directly after telling it the window.
template <typename Interface, typename Notify>
void KZCEFCom::Walk(HWND window, Notify&& notify, VARIANT_BOOL* popup) const {
  WalkThrough<Interface>(*Snapshot(), window, std::forward<Notify>(notify), popup);
}

template <typename Interface, typename Notify>
void KZCEFCom::WalkThrough(const Pairs& pairs, HWND window, Notify&& notify, VARIANT_BOOL* popup) {
  for (const Pair& pair : pairs) {
    if (!pair.handler || !Serves(pair, window, popup)) {
      continue;
    }
    ComPtr<Interface> handler;
    if (SUCCEEDED(pair.handler->QueryInterface(IID_PPV_ARGS(handler.GetAddressOf()))) && handler) {
      handler->SetOwnerWndHandle(HandleValue(window));
      notify(*handler.Get());
    }
  }
}

// The first listed browser object in `window` gets to offer its script handlers to the page.
void KZCEFCom::PassPendingScriptHandlers(HWND window) const {
  const std::shared_ptr<const BrowserList> browsers = browsers_.load();
  for (const std::shared_ptr<BrowserLife>& life : *browsers) {
    std::optional<ScriptHandlerOffer> offer;
    if (life) {
      life->With([&](const CKZCEFComBrowser& browser) {
        if (browser.WindowHandle() == window) {
          offer = browser.PendingScriptHandlers();
        }
      });
    }
    if (offer) {
      offer->Send();
      return;
    }
  }
}

void KZCEFCom::AddressChangeNotify(HWND window, const std::wstring& new_address) {
  // Before the script handlers, whose code may register and unregister.
  const auto pairs = Snapshot();
  PassPendingScriptHandlers(window);
  const UniqueBstr address = NotificationText(new_address);
  WalkThrough<IKZCEFComBrowserHandler>(*pairs, window, [&](IKZCEFComBrowserHandler& handler) {
    handler.AddressChangeNotify(address.get());
  });
}

void KZCEFCom::BeforeBrowseNotify(HWND window,
                                  const std::wstring& request_url,
                                  VARIANT_BOOL user_gesture,
                                  VARIANT_BOOL is_redirect,
                                  VARIANT_BOOL* cancel_navigation) {
  const UniqueBstr url = NotificationText(request_url);
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.BeforeBrowseNotify(url.get(), user_gesture, is_redirect, cancel_navigation);
  });
}

void KZCEFCom::BeforeContextMenuNotify(HWND window, VARIANT_BOOL* clear_model) {
  Walk<IKZCEFComBrowserHandler2>(window, [&](IKZCEFComBrowserHandler2& handler) {
    handler.BeforeContextMenuNotify(clear_model);
  });
}

void KZCEFCom::BeforeDownloadNotify(HWND window,
                                    BSTR* download_path_name,
                                    VARIANT_BOOL* can_be_downloaded,
                                    VARIANT_BOOL* show_save_as_dialog) {
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.BeforeDownloadNotify(download_path_name, can_be_downloaded, show_save_as_dialog);
  });
}

void KZCEFCom::BeforePopupNotify(HWND window,
                                 const std::wstring& url,
                                 VARIANT_BOOL* popup,
                                 VARIANT_BOOL* proceed) {
  const UniqueBstr target = NotificationText(url);
  Walk<IKZCEFComBrowserHandler>(
      window,
      [&](IKZCEFComBrowserHandler& handler) {
        handler.BeforePopupNotify(target.get(), popup, proceed);
      },
      popup);
}

void KZCEFCom::BeforeResourceLoadNotify(HWND window, BSTR* url, BSTR* request_type_name) {
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.BeforeResourceLoadNotify(url, request_type_name);
  });
}

void KZCEFCom::BrowserCreatedNotify(HWND window) {
  const auto pairs = Snapshot();
  PassPendingScriptHandlers(window);
  WalkThrough<IKZCEFComBrowserHandler>(
      *pairs, window, [](IKZCEFComBrowserHandler& handler) { handler.BrowserCreatedNotify(); });
}

void KZCEFCom::DownloadCompletedNotify(HWND window, const std::wstring& download_path_name) {
  const UniqueBstr path = NotificationText(download_path_name);
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.DownloadCompletedNotify(path.get());
  });
}

void KZCEFCom::DownloadUpdatedNotify(HWND window,
                                     const std::wstring& download_path_name,
                                     long download_status,
                                     long percent_complete) {
  const UniqueBstr path = NotificationText(download_path_name);
  Walk<IKZCEFComBrowserHandler2>(window, [&](IKZCEFComBrowserHandler2& handler) {
    handler.DownloadUpdatedNotify(path.get(), download_status, percent_complete);
  });
}

void KZCEFCom::EscapeKeyNotify(HWND window) {
  Walk<IKZCEFComBrowserHandler>(
      window, [](IKZCEFComBrowserHandler& handler) { handler.EscapeKeyNotify(); });
}

void KZCEFCom::GetAuthCredentialsNotify(HWND window,
                                        BSTR* origin_url,
                                        VARIANT_BOOL* is_proxy,
                                        BSTR* host,
                                        long port,
                                        BSTR* realm,
                                        BSTR* scheme,
                                        VARIANT_BOOL* should_continue,
                                        BSTR* username,
                                        BSTR* password) {
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.GetAuthCredentialsNotify(origin_url, is_proxy, host, port, realm, scheme,
                                     should_continue, username, password);
  });
}

void KZCEFCom::KeyStrokeNotify(HWND window, long windows_key_code, VARIANT_BOOL* is_handled) {
  Walk<IKZCEFComBrowserHandler3>(window, [&](IKZCEFComBrowserHandler3& handler) {
    handler.KeyStrokeNotify(windows_key_code, is_handled);
  });
}

void KZCEFCom::LoadEndNotify(HWND window, long http_status) {
  Walk<IKZCEFComBrowserHandler>(
      window, [&](IKZCEFComBrowserHandler& handler) { handler.LoadEndNotify(http_status); });
}

void KZCEFCom::LoadStartNotify(HWND window, long transition_type) {
  Walk<IKZCEFComBrowserHandler>(
      window, [&](IKZCEFComBrowserHandler& handler) { handler.LoadStartNotify(transition_type); });
}

void KZCEFCom::LoadingStateChangeNotify(HWND window,
                                        VARIANT_BOOL is_loading,
                                        VARIANT_BOOL can_go_back,
                                        VARIANT_BOOL can_go_forward) {
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.LoadingStateChangeNotify(is_loading, can_go_back, can_go_forward);
  });
}

void KZCEFCom::ResourceLoadCompleteNotify(HWND window,
                                          const std::wstring& request_url,
                                          const std::wstring& json) {
  const UniqueBstr url = NotificationText(request_url);
  const UniqueBstr body = NotificationText(json);
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.ResourceLoadCompleteNotify(url.get(), body.get());
  });
}

void KZCEFCom::ResourceRedirectNotify(HWND window,
                                      const std::wstring& old_url,
                                      BSTR* new_url,
                                      long status_code) {
  const UniqueBstr old = NotificationText(old_url);
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.ResourceRedirectNotify(old.get(), new_url, status_code);
  });
}

void KZCEFCom::ResourceResponseNotify(HWND window,
                                      BSTR* url,
                                      VARIANT_BOOL* modify_request,
                                      long resource_type) {
  Walk<IKZCEFComBrowserHandler>(window, [&](IKZCEFComBrowserHandler& handler) {
    handler.ResourceResponseNotify(url, modify_request, resource_type);
  });
}

}  // namespace kzcef
