#pragma once

#include "include/cef_base.h"

class CefMenuModel;

// Events of a menu that the client made itself.
class CefMenuModelDelegate : public virtual CefBaseRefCounted {
 public:
  virtual void ExecuteCommand(CefRefPtr<CefMenuModel> menu_model,
                              int command_id,
                              cef_event_flags_t event_flags) = 0;
  virtual void MouseOutsideMenu(CefRefPtr<CefMenuModel> menu_model, const CefPoint& screen_point) {}
  virtual void UnhandledOpenSubmenu(CefRefPtr<CefMenuModel> menu_model, bool is_rtl) {}
  virtual void UnhandledCloseSubmenu(CefRefPtr<CefMenuModel> menu_model, bool is_rtl) {}
  virtual void MenuWillShow(CefRefPtr<CefMenuModel> menu_model) {}
  virtual void MenuClosed(CefRefPtr<CefMenuModel> menu_model) {}
  virtual bool FormatLabel(CefRefPtr<CefMenuModel> menu_model, CefString& label) { return false; }
};
