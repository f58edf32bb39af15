// What the context menu of a page holds, and the commands that the handler carries out itself.
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/network_emulation.h"
#include "handler/page_menu.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {
namespace {

// The handler's own commands. Only the last one is ever put into a menu here; owners and hosts may
// add the others.
enum MenuCommand {
  kShowDevTools = MENU_ID_USER_FIRST,
  kCloseDevTools,
  kInspectElement,
  kFlipCursorChange = MENU_ID_USER_FIRST + 4,
  kFlipOffline,
  // The numbers left out are the handler's too, and do nothing.
  kRefresh = MENU_ID_USER_FIRST + 11,
};

bool IsMenuOfAPage(const CefRefPtr<CefContextMenuParams>& params) {
  return params && (params->GetTypeFlags() & (CM_TYPEFLAG_PAGE | CM_TYPEFLAG_FRAME)) != 0;
}

void FillMenu(const CefRefPtr<CefBrowser>& browser,
              const CefRefPtr<CefContextMenuParams>& params,
              const CefRefPtr<CefMenuModel>& model) {
  VARIANT_BOOL clear_model = VARIANT_FALSE;
  RaiseContained(browser, [&](HostNotifications& host, HWND window) {
    host.BeforeContextMenuNotify(window, &clear_model);
  });
  // Asked in any case: the first menu settles the switch, also one that the host clears.
  const bool is_on = IsPageMenuOn();
  if (clear_model != VARIANT_FALSE || !is_on) {
    model->Clear();
  } else if (IsMenuOfAPage(params)) {
    if (model->GetCount() > 0) {
      model->AddSeparator();
    }
    model->AddItem(kRefresh, "&Refresh");
  }
}

// Where the element under the mouse was when the menu was opened.
CefPoint PositionOf(const CefRefPtr<CefContextMenuParams>& params) {
  return params ? CefPoint(params->GetXCoord(), params->GetYCoord()) : CefPoint();
}

void ShowDevTools(CefBrowserHost& host, const CefPoint& inspected) {
  CefWindowInfo window_info;
  // Where the system puts it and as large as it likes.
  window_info.SetAsPopup(nullptr, "DevTools");
  // Not this client: its owner would take the tools' browser for one of its own.
  host.ShowDevTools(window_info, nullptr, CefBrowserSettings(), inspected);
}

// The commands that the browser carries out. Other ones do nothing.
void RunCommand(CefBrowser& browser,
                const CefRefPtr<CefContextMenuParams>& params,
                int command_id) {
  const CefRefPtr<CefBrowserHost> host = browser.GetHost();
  if (!host) {
    return;
  }
  switch (command_id) {
    case kShowDevTools:
      ShowDevTools(*host.get(), CefPoint());
      break;
    case kCloseDevTools:
      host->CloseDevTools();
      break;
    case kInspectElement:
      ShowDevTools(*host.get(), PositionOf(params));
      break;
    case kRefresh:
      browser.Reload();
      break;
    default:
      break;
  }
}

}  // namespace

void kzCefClientHandler::OnBeforeContextMenu(CefRefPtr<CefBrowser> browser,
                                             CefRefPtr<CefFrame> /*frame*/,
                                             CefRefPtr<CefContextMenuParams> params,
                                             CefRefPtr<CefMenuModel> model) {
  CEF_REQUIRE_UI_THREAD();
  Contained([&] { FillMenu(browser, params, model); });
  if (Delegate* const owner = delegate()) {
    owner->OnBeforeContextMenu(model);
  }
}

bool kzCefClientHandler::OnContextMenuCommand(CefRefPtr<CefBrowser> browser,
                                              CefRefPtr<CefFrame> /*frame*/,
                                              CefRefPtr<CefContextMenuParams> params,
                                              int command_id,
                                              EventFlags /*event_flags*/) {
  CEF_REQUIRE_UI_THREAD();
  if (command_id < kShowDevTools || command_id > kRefresh) {
    return false;
  }
  Contained([&] {
    if (command_id == kFlipCursorChange) {
      mouse_cursor_change_disabled_ = !mouse_cursor_change_disabled_;
    } else if (command_id == kFlipOffline) {
      offline_ = !offline_;
      EmulateNetwork(browser, offline_);
    } else if (browser) {
      RunCommand(*browser.get(), params, command_id);
    }
  });
  return true;
}

}  // namespace kzcef
