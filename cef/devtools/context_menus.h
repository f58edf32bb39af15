#pragma once

#include <memory>
#include <optional>

#include "devtools/context_menu_params.h"

namespace cefedition {

class BrowserCore;

/// The context menu of one browser: asks the client about it, shows it if the client does not, and
/// carries out what is chosen. One at a time. UI thread.
class ContextMenus {
 public:
  explicit ContextMenus(BrowserCore& core);
  ~ContextMenus();
  ContextMenus(const ContextMenus&) = delete;
  ContextMenus& operator=(const ContextMenus&) = delete;

  /// `Runtime.bindingCalled`; anything but a report of the menu's script is ignored.
  void OnReport(const Json& params);

  /// The page has been sent this change of the right button. The page asks for the menu when the
  /// button goes down, the system's menus come when it goes up.
  void OnRightButton(bool down);

  /// The browser is being closed: so is the menu.
  void End();

 private:
  class RunCallback;
  /// The menu that is open, or that the client shows.
  struct Menu {
    CefRefPtr<CefFrame> frame;
    CefRefPtr<CefContextMenuParams> params;
    CefRefPtr<CefMenuModel> model;
    POINT at{};
  };
  struct Choice {
    int command = 0;
    cef_event_flags_t flags = EVENTFLAG_NONE;
  };

  void Open(const ContextMenuReport& report);
  void Show(const std::shared_ptr<Menu>& menu);
  /// Does nothing unless `menu` is still the open one.
  void Finish(std::shared_ptr<Menu> menu, std::optional<Choice> choice);
  void Execute(const Menu& menu, const Choice& choice);
  void CarryOut(const Menu& menu, int command);

  BrowserCore& core_;
  bool right_button_down_ = false;
  std::optional<ContextMenuReport> wanted_;
  std::shared_ptr<Menu> menu_;
  bool on_screen_ = false;
};

}  // namespace cefedition
