#pragma once

#include "recording_client.h"

namespace cefedition {

/// A client that also hears of menus, keys, focus and draggable regions. What it is to answer is
/// set before the event, or on the UI thread.
class InputClient : public RecordingClient,
                    public CefContextMenuHandler,
                    public CefKeyboardHandler,
                    public CefFocusHandler,
                    public CefDragHandler {
 public:
  explicit InputClient(EventLog* log) : RecordingClient(log), log_(log) {}

  std::function<bool(const CefKeyEvent& event)> consume_key;
  bool refuse_focus = false;
  std::function<void(CefRefPtr<CefMenuModel> model)> change_menu;
  std::function<void(CefRefPtr<CefContextMenuParams> params)> look_at_params;
  bool show_menu_itself = false;
  bool handle_commands = false;

  /// Of the menu that the client shows itself.
  CefRefPtr<CefRunContextMenuCallback> TakeMenuCallback();

  CefRefPtr<CefContextMenuHandler> GetContextMenuHandler() override { return this; }
  CefRefPtr<CefKeyboardHandler> GetKeyboardHandler() override { return this; }
  CefRefPtr<CefFocusHandler> GetFocusHandler() override { return this; }
  CefRefPtr<CefDragHandler> GetDragHandler() override { return this; }

  void OnBeforeContextMenu(CefRefPtr<CefBrowser> browser,
                           CefRefPtr<CefFrame> frame,
                           CefRefPtr<CefContextMenuParams> params,
                           CefRefPtr<CefMenuModel> model) override;
  bool RunContextMenu(CefRefPtr<CefBrowser> browser,
                      CefRefPtr<CefFrame> frame,
                      CefRefPtr<CefContextMenuParams> params,
                      CefRefPtr<CefMenuModel> model,
                      CefRefPtr<CefRunContextMenuCallback> callback) override;
  bool OnContextMenuCommand(CefRefPtr<CefBrowser> browser,
                            CefRefPtr<CefFrame> frame,
                            CefRefPtr<CefContextMenuParams> params,
                            int command_id,
                            EventFlags event_flags) override;
  void OnContextMenuDismissed(CefRefPtr<CefBrowser> browser, CefRefPtr<CefFrame> frame) override;

  bool OnPreKeyEvent(CefRefPtr<CefBrowser> browser,
                     const CefKeyEvent& event,
                     CefEventHandle os_event,
                     bool* is_keyboard_shortcut) override;

  void OnTakeFocus(CefRefPtr<CefBrowser> browser, bool next) override;
  bool OnSetFocus(CefRefPtr<CefBrowser> browser, FocusSource source) override;
  void OnGotFocus(CefRefPtr<CefBrowser> browser) override;

  void OnDraggableRegionsChanged(CefRefPtr<CefBrowser> browser,
                                 CefRefPtr<CefFrame> frame,
                                 const std::vector<CefDraggableRegion>& regions) override;

 private:
  EventLog* const log_;
  std::mutex callback_lock_;
  CefRefPtr<CefRunContextMenuCallback> callback_;
};

}  // namespace cefedition
