// include/cef_menu_model.h of CEF 123, as far as it is used here: the items of a menu.
#pragma once

#include "include/cef_base.h"

// A menu. UI thread.
class CefMenuModel : public virtual CefBaseRefCounted {
 public:
  typedef cef_menu_item_type_t MenuItemType;

  virtual bool IsSubMenu() = 0;
  virtual bool Clear() = 0;
  virtual size_t GetCount() = 0;
  virtual bool AddSeparator() = 0;
  virtual bool AddItem(int command_id, const CefString& label) = 0;
  virtual bool AddCheckItem(int command_id, const CefString& label) = 0;
  virtual bool AddRadioItem(int command_id, const CefString& label, int group_id) = 0;
  virtual CefRefPtr<CefMenuModel> AddSubMenu(int command_id, const CefString& label) = 0;
  virtual bool InsertSeparatorAt(size_t index) = 0;
  virtual bool InsertItemAt(size_t index, int command_id, const CefString& label) = 0;
  virtual bool InsertCheckItemAt(size_t index, int command_id, const CefString& label) = 0;
  virtual bool InsertRadioItemAt(size_t index,
                                 int command_id,
                                 const CefString& label,
                                 int group_id) = 0;
  virtual CefRefPtr<CefMenuModel> InsertSubMenuAt(size_t index,
                                                  int command_id,
                                                  const CefString& label) = 0;
  virtual bool Remove(int command_id) = 0;
  virtual bool RemoveAt(size_t index) = 0;
  virtual int GetIndexOf(int command_id) = 0;
  virtual int GetCommandIdAt(size_t index) = 0;
  virtual bool SetCommandIdAt(size_t index, int command_id) = 0;
  virtual CefString GetLabel(int command_id) = 0;
  virtual CefString GetLabelAt(size_t index) = 0;
  virtual bool SetLabel(int command_id, const CefString& label) = 0;
  virtual bool SetLabelAt(size_t index, const CefString& label) = 0;
  virtual MenuItemType GetType(int command_id) = 0;
  virtual MenuItemType GetTypeAt(size_t index) = 0;
  virtual int GetGroupId(int command_id) = 0;
  virtual int GetGroupIdAt(size_t index) = 0;
  virtual bool SetGroupId(int command_id, int group_id) = 0;
  virtual bool SetGroupIdAt(size_t index, int group_id) = 0;
  virtual CefRefPtr<CefMenuModel> GetSubMenu(int command_id) = 0;
  virtual CefRefPtr<CefMenuModel> GetSubMenuAt(size_t index) = 0;
  virtual bool IsVisible(int command_id) = 0;
  virtual bool IsVisibleAt(size_t index) = 0;
  virtual bool SetVisible(int command_id, bool visible) = 0;
  virtual bool SetVisibleAt(size_t index, bool visible) = 0;
  virtual bool IsEnabled(int command_id) = 0;
  virtual bool IsEnabledAt(size_t index) = 0;
  virtual bool SetEnabled(int command_id, bool enabled) = 0;
  virtual bool SetEnabledAt(size_t index, bool enabled) = 0;
  virtual bool IsChecked(int command_id) = 0;
  virtual bool IsCheckedAt(size_t index) = 0;
  virtual bool SetChecked(int command_id, bool checked) = 0;
  virtual bool SetCheckedAt(size_t index, bool checked) = 0;
  virtual bool HasAccelerator(int command_id) = 0;
  virtual bool HasAcceleratorAt(size_t index) = 0;
  virtual bool SetAccelerator(int command_id,
                              int key_code,
                              bool shift_pressed,
                              bool ctrl_pressed,
                              bool alt_pressed) = 0;
  virtual bool SetAcceleratorAt(size_t index,
                                int key_code,
                                bool shift_pressed,
                                bool ctrl_pressed,
                                bool alt_pressed) = 0;
  virtual bool RemoveAccelerator(int command_id) = 0;
  virtual bool RemoveAcceleratorAt(size_t index) = 0;
  virtual bool GetAccelerator(int command_id,
                              int& key_code,
                              bool& shift_pressed,
                              bool& ctrl_pressed,
                              bool& alt_pressed) = 0;
  virtual bool GetAcceleratorAt(size_t index,
                                int& key_code,
                                bool& shift_pressed,
                                bool& ctrl_pressed,
                                bool& alt_pressed) = 0;
  virtual bool SetColor(int command_id, cef_menu_color_type_t color_type, cef_color_t color) = 0;
  virtual bool SetColorAt(int index, cef_menu_color_type_t color_type, cef_color_t color) = 0;
  virtual bool GetColor(int command_id, cef_menu_color_type_t color_type, cef_color_t& color) = 0;
  virtual bool GetColorAt(int index, cef_menu_color_type_t color_type, cef_color_t& color) = 0;
  virtual bool SetFontList(int command_id, const CefString& font_list) = 0;
  virtual bool SetFontListAt(int index, const CefString& font_list) = 0;
};
