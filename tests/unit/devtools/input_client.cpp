#include "input_client.h"

#include <gtest/gtest.h>

#include "include/wrapper/cef_helpers.h"

namespace cefedition {
namespace {

const char* NameOf(cef_key_event_type_t type) {
  switch (type) {
    case KEYEVENT_RAWKEYDOWN:
      return "down";
    case KEYEVENT_KEYUP:
      return "up";
    case KEYEVENT_CHAR:
      return "char";
    default:
      return "other";
  }
}

// "Back|Forward-|--|Print": what is disabled has a minus behind it.
std::string TextOf(CefMenuModel& model) {
  std::string text;
  for (size_t at = 0; at < model.GetCount(); ++at) {
    text += at == 0 ? "" : "|";
    if (model.GetTypeAt(at) == MENUITEMTYPE_SEPARATOR) {
      text += "--";
    } else {
      text += std::to_string(model.GetCommandIdAt(at)) + (model.IsEnabledAt(at) ? "" : "-");
    }
  }
  return text;
}

}  // namespace

CefRefPtr<CefRunContextMenuCallback> InputClient::TakeMenuCallback() {
  std::lock_guard hold(callback_lock_);
  return std::exchange(callback_, nullptr);
}

void InputClient::OnBeforeContextMenu(CefRefPtr<CefBrowser>,
                                      CefRefPtr<CefFrame> frame,
                                      CefRefPtr<CefContextMenuParams> params,
                                      CefRefPtr<CefMenuModel> model) {
  EXPECT_TRUE(CefCurrentlyOn(TID_UI));
  if (look_at_params) {
    look_at_params(params);
  }
  log_->Add("menu " + std::string(frame->IsMain() ? "main " : "sub ") +
            std::to_string(params->GetTypeFlags()) + " " + TextOf(*model));
  if (change_menu) {
    change_menu(model);
  }
}

bool InputClient::RunContextMenu(CefRefPtr<CefBrowser>,
                                 CefRefPtr<CefFrame>,
                                 CefRefPtr<CefContextMenuParams>,
                                 CefRefPtr<CefMenuModel>,
                                 CefRefPtr<CefRunContextMenuCallback> callback) {
  if (show_menu_itself) {
    std::lock_guard hold(callback_lock_);
    callback_ = callback;
  }
  log_->Add("run-menu");
  return show_menu_itself;
}

bool InputClient::OnContextMenuCommand(CefRefPtr<CefBrowser>,
                                       CefRefPtr<CefFrame>,
                                       CefRefPtr<CefContextMenuParams>,
                                       int command_id,
                                       EventFlags event_flags) {
  log_->Add("command " + std::to_string(command_id) + " " + std::to_string(event_flags));
  return handle_commands;
}

void InputClient::OnContextMenuDismissed(CefRefPtr<CefBrowser>, CefRefPtr<CefFrame>) {
  log_->Add("dismissed");
}

bool InputClient::OnPreKeyEvent(CefRefPtr<CefBrowser>,
                                const CefKeyEvent& event,
                                CefEventHandle os_event,
                                bool*) {
  EXPECT_TRUE(CefCurrentlyOn(TID_UI));
  log_->Add(std::string("key ") + NameOf(event.type) + " " +
            std::to_string(event.windows_key_code) +
            (event.focus_on_editable_field ? " editable" : "") +
            (os_event && os_event->message != 0 ? " os" : ""));
  return consume_key && consume_key(event);
}

void InputClient::OnTakeFocus(CefRefPtr<CefBrowser>, bool next) {
  log_->Add(next ? "take-focus next" : "take-focus previous");
}

bool InputClient::OnSetFocus(CefRefPtr<CefBrowser>, FocusSource source) {
  log_->Add("set-focus " + std::to_string(source));
  return refuse_focus;
}

void InputClient::OnGotFocus(CefRefPtr<CefBrowser>) {
  log_->Add("got-focus");
}

void InputClient::OnDraggableRegionsChanged(CefRefPtr<CefBrowser>,
                                            CefRefPtr<CefFrame>,
                                            const std::vector<CefDraggableRegion>& regions) {
  std::string text = "regions";
  for (const CefDraggableRegion& region : regions) {
    const cef_rect_t& at = region.bounds;
    text += " " + std::to_string(at.x) + "," + std::to_string(at.y) + "," +
            std::to_string(at.width) + "x" + std::to_string(at.height) +
            (region.draggable ? "" : "-");
  }
  log_->Add(text);
}

}  // namespace cefedition
