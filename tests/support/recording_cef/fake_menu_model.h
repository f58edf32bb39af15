// A menu without an engine, for tests of what is put into menus.
#pragma once

#include <algorithm>
#include <vector>

#include "include/cef_menu_model.h"

namespace recording_cef {

// One line of a menu.
struct MenuItem {
  cef_menu_item_type_t type = MENUITEMTYPE_NONE;
  int command_id = -1;
  CefString label;
};

// A menu for tests: the engine makes its own on its UI thread only. Commands, check items, radio
// items and separators are kept as lines; a line's further qualities and menus inside menus are not
// there.
class FakeMenuModel final : public CefMenuModel {
 public:
  std::vector<MenuItem> items;

  bool IsSubMenu() override { return false; }
  bool Clear() override {
    items.clear();
    return true;
  }
  size_t GetCount() override { return items.size(); }
  bool AddSeparator() override { return InsertSeparatorAt(items.size()); }
  bool AddItem(int command_id, const CefString& label) override {
    return InsertItemAt(items.size(), command_id, label);
  }
  bool AddCheckItem(int command_id, const CefString& label) override {
    return InsertCheckItemAt(items.size(), command_id, label);
  }
  bool AddRadioItem(int command_id, const CefString& label, int group_id) override {
    return InsertRadioItemAt(items.size(), command_id, label, group_id);
  }
  CefRefPtr<CefMenuModel> AddSubMenu(int, const CefString&) override { return nullptr; }
  bool InsertSeparatorAt(size_t index) override {
    return Insert(index, {MENUITEMTYPE_SEPARATOR, -1, CefString()});
  }
  bool InsertItemAt(size_t index, int command_id, const CefString& label) override {
    return Insert(index, {MENUITEMTYPE_COMMAND, command_id, label});
  }
  bool InsertCheckItemAt(size_t index, int command_id, const CefString& label) override {
    return Insert(index, {MENUITEMTYPE_CHECK, command_id, label});
  }
  bool InsertRadioItemAt(size_t index, int command_id, const CefString& label, int) override {
    return Insert(index, {MENUITEMTYPE_RADIO, command_id, label});
  }
  CefRefPtr<CefMenuModel> InsertSubMenuAt(size_t, int, const CefString&) override {
    return nullptr;
  }
  bool Remove(int command_id) override { return RemoveAt(Position(command_id)); }
  bool RemoveAt(size_t index) override {
    if (index >= items.size()) {
      return false;
    }
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
    return true;
  }
  int GetIndexOf(int command_id) override {
    const size_t index = Position(command_id);
    return index < items.size() ? static_cast<int>(index) : -1;
  }
  int GetCommandIdAt(size_t index) override { return At(index).command_id; }
  bool SetCommandIdAt(size_t, int) override { return false; }
  CefString GetLabel(int command_id) override { return At(Position(command_id)).label; }
  CefString GetLabelAt(size_t index) override { return At(index).label; }
  bool SetLabel(int, const CefString&) override { return false; }
  bool SetLabelAt(size_t, const CefString&) override { return false; }
  MenuItemType GetType(int command_id) override { return At(Position(command_id)).type; }
  MenuItemType GetTypeAt(size_t index) override { return At(index).type; }
  int GetGroupId(int) override { return -1; }
  int GetGroupIdAt(size_t) override { return -1; }
  bool SetGroupId(int, int) override { return false; }
  bool SetGroupIdAt(size_t, int) override { return false; }
  CefRefPtr<CefMenuModel> GetSubMenu(int) override { return nullptr; }
  CefRefPtr<CefMenuModel> GetSubMenuAt(size_t) override { return nullptr; }
  bool IsVisible(int) override { return true; }
  bool IsVisibleAt(size_t) override { return true; }
  bool SetVisible(int, bool) override { return false; }
  bool SetVisibleAt(size_t, bool) override { return false; }
  bool IsEnabled(int) override { return true; }
  bool IsEnabledAt(size_t) override { return true; }
  bool SetEnabled(int, bool) override { return false; }
  bool SetEnabledAt(size_t, bool) override { return false; }
  bool IsChecked(int) override { return false; }
  bool IsCheckedAt(size_t) override { return false; }
  bool SetChecked(int, bool) override { return false; }
  bool SetCheckedAt(size_t, bool) override { return false; }
  bool HasAccelerator(int) override { return false; }
  bool HasAcceleratorAt(size_t) override { return false; }
  bool SetAccelerator(int, int, bool, bool, bool) override { return false; }
  bool SetAcceleratorAt(size_t, int, bool, bool, bool) override { return false; }
  bool RemoveAccelerator(int) override { return false; }
  bool RemoveAcceleratorAt(size_t) override { return false; }
  bool GetAccelerator(int, int&, bool&, bool&, bool&) override { return false; }
  bool GetAcceleratorAt(size_t, int&, bool&, bool&, bool&) override { return false; }
  bool SetColor(int, cef_menu_color_type_t, cef_color_t) override { return false; }
  bool SetColorAt(int, cef_menu_color_type_t, cef_color_t) override { return false; }
  bool GetColor(int, cef_menu_color_type_t, cef_color_t&) override { return false; }
  bool GetColorAt(int, cef_menu_color_type_t, cef_color_t&) override { return false; }
  bool SetFontList(int, const CefString&) override { return false; }
  bool SetFontListAt(int, const CefString&) override { return false; }

 private:
  bool Insert(size_t index, const MenuItem& item) {
    if (index > items.size()) {
      return false;
    }
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(index), item);
    return true;
  }
  // The first line of the command, or the menu's end.
  size_t Position(int command_id) const {
    const auto found = std::find_if(items.begin(), items.end(), [&](const MenuItem& item) {
      return item.command_id == command_id;
    });
    return static_cast<size_t>(found - items.begin());
  }
  MenuItem At(size_t index) const { return index < items.size() ? items[index] : MenuItem(); }

  IMPLEMENT_REFCOUNTING(FakeMenuModel);
};

}  // namespace recording_cef
