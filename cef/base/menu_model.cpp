#include "menu_model.h"

#include <array>
#include <optional>
#include <vector>

// A menu as data. Items are found by command id (the first that has it) or by position; what does
// not exist answers false, an empty text, or -1. Used on one thread, the UI thread.

namespace cefedition {
namespace {

struct Accelerator {
  int key_code = 0;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
};

class MenuModel;

struct Item {
  CefMenuModel::MenuItemType type = MENUITEMTYPE_NONE;
  int command_id = -1;
  CefString label;
  int group_id = -1;
  CefRefPtr<CefMenuModel> sub_menu;
  bool visible = true;
  bool enabled = true;
  bool checked = false;
  std::optional<Accelerator> accelerator;
  std::array<cef_color_t, CEF_MENU_COLOR_COUNT> colors = {};
  CefString font_list;
};

class MenuModel final : public CefMenuModel {
 public:
  explicit MenuModel(bool is_sub_menu) : is_sub_menu_(is_sub_menu) {}

  bool IsSubMenu() override { return is_sub_menu_; }
  bool Clear() override {
    items_.clear();
    return true;
  }
  size_t GetCount() override { return items_.size(); }

  bool AddSeparator() override { return InsertSeparatorAt(items_.size()); }
  bool AddItem(int command_id, const CefString& label) override {
    return InsertItemAt(items_.size(), command_id, label);
  }
  bool AddCheckItem(int command_id, const CefString& label) override {
    return InsertCheckItemAt(items_.size(), command_id, label);
  }
  bool AddRadioItem(int command_id, const CefString& label, int group_id) override {
    return InsertRadioItemAt(items_.size(), command_id, label, group_id);
  }
  CefRefPtr<CefMenuModel> AddSubMenu(int command_id, const CefString& label) override {
    return InsertSubMenuAt(items_.size(), command_id, label);
  }

  bool InsertSeparatorAt(size_t index) override {
    Item item;
    item.type = MENUITEMTYPE_SEPARATOR;
    return Insert(index, std::move(item));
  }
  bool InsertItemAt(size_t index, int command_id, const CefString& label) override {
    return InsertLabelled(index, MENUITEMTYPE_COMMAND, command_id, label);
  }
  bool InsertCheckItemAt(size_t index, int command_id, const CefString& label) override {
    return InsertLabelled(index, MENUITEMTYPE_CHECK, command_id, label);
  }
  bool InsertRadioItemAt(size_t index,
                         int command_id,
                         const CefString& label,
                         int group_id) override {
    return InsertLabelled(index, MENUITEMTYPE_RADIO, command_id, label, group_id);
  }
  CefRefPtr<CefMenuModel> InsertSubMenuAt(size_t index,
                                          int command_id,
                                          const CefString& label) override {
    if (!InsertLabelled(index, MENUITEMTYPE_SUBMENU, command_id, label)) {
      return nullptr;
    }
    items_[index].sub_menu = new MenuModel(true);
    return items_[index].sub_menu;
  }

  bool Remove(int command_id) override { return RemoveAt(Position(command_id)); }
  bool RemoveAt(size_t index) override {
    if (!At(index)) {
      return false;
    }
    items_.erase(items_.begin() + static_cast<ptrdiff_t>(index));
    return true;
  }
  int GetIndexOf(int command_id) override {
    const size_t index = Position(command_id);
    return index < items_.size() ? static_cast<int>(index) : -1;
  }

  int GetCommandIdAt(size_t index) override {
    return Get(At(index), -1, [](const Item& item) { return item.command_id; });
  }
  bool SetCommandIdAt(size_t index, int command_id) override {
    return Set(At(index), [&](Item& item) { item.command_id = command_id; });
  }

  CefString GetLabel(int command_id) override { return GetLabelAt(Position(command_id)); }
  CefString GetLabelAt(size_t index) override {
    return Get(At(index), CefString(), [](const Item& item) { return item.label; });
  }
  bool SetLabel(int command_id, const CefString& label) override {
    return SetLabelAt(Position(command_id), label);
  }
  bool SetLabelAt(size_t index, const CefString& label) override {
    return !label.empty() && Set(At(index), [&](Item& item) { item.label = label; });
  }

  MenuItemType GetType(int command_id) override { return GetTypeAt(Position(command_id)); }
  MenuItemType GetTypeAt(size_t index) override {
    return Get(At(index), MENUITEMTYPE_NONE, [](const Item& item) { return item.type; });
  }

  int GetGroupId(int command_id) override { return GetGroupIdAt(Position(command_id)); }
  int GetGroupIdAt(size_t index) override {
    return Get(At(index), -1, [](const Item& item) { return item.group_id; });
  }
  bool SetGroupId(int command_id, int group_id) override {
    return SetGroupIdAt(Position(command_id), group_id);
  }
  bool SetGroupIdAt(size_t index, int group_id) override {
    return Set(At(index), [&](Item& item) { item.group_id = group_id; });
  }

  CefRefPtr<CefMenuModel> GetSubMenu(int command_id) override {
    return GetSubMenuAt(Position(command_id));
  }
  CefRefPtr<CefMenuModel> GetSubMenuAt(size_t index) override {
    return Get(At(index), CefRefPtr<CefMenuModel>(),
               [](const Item& item) { return item.sub_menu; });
  }

  bool IsVisible(int command_id) override { return IsVisibleAt(Position(command_id)); }
  bool IsVisibleAt(size_t index) override {
    return Get(At(index), false, [](const Item& item) { return item.visible; });
  }
  bool SetVisible(int command_id, bool visible) override {
    return SetVisibleAt(Position(command_id), visible);
  }
  bool SetVisibleAt(size_t index, bool visible) override {
    return Set(At(index), [&](Item& item) { item.visible = visible; });
  }

  bool IsEnabled(int command_id) override { return IsEnabledAt(Position(command_id)); }
  bool IsEnabledAt(size_t index) override {
    return Get(At(index), false, [](const Item& item) { return item.enabled; });
  }
  bool SetEnabled(int command_id, bool enabled) override {
    return SetEnabledAt(Position(command_id), enabled);
  }
  bool SetEnabledAt(size_t index, bool enabled) override {
    return Set(At(index), [&](Item& item) { item.enabled = enabled; });
  }

  bool IsChecked(int command_id) override { return IsCheckedAt(Position(command_id)); }
  bool IsCheckedAt(size_t index) override {
    return Get(At(index), false, [](const Item& item) { return item.checked; });
  }
  bool SetChecked(int command_id, bool checked) override {
    return SetCheckedAt(Position(command_id), checked);
  }
  // Checking a radio item unchecks the others of its group.
  bool SetCheckedAt(size_t index, bool checked) override {
    Item* const changed = At(index);
    if (changed && checked && changed->type == MENUITEMTYPE_RADIO) {
      for (Item& item : items_) {
        if (item.type == MENUITEMTYPE_RADIO && item.group_id == changed->group_id) {
          item.checked = false;
        }
      }
    }
    return Set(changed, [&](Item& item) { item.checked = checked; });
  }

  bool HasAccelerator(int command_id) override { return HasAcceleratorAt(Position(command_id)); }
  bool HasAcceleratorAt(size_t index) override {
    return Get(At(index), false, [](const Item& item) { return item.accelerator.has_value(); });
  }
  bool SetAccelerator(int command_id,
                      int key_code,
                      bool shift_pressed,
                      bool ctrl_pressed,
                      bool alt_pressed) override {
    return SetAcceleratorAt(Position(command_id), key_code, shift_pressed, ctrl_pressed,
                            alt_pressed);
  }
  bool SetAcceleratorAt(size_t index,
                        int key_code,
                        bool shift_pressed,
                        bool ctrl_pressed,
                        bool alt_pressed) override {
    return Set(At(index), [&](Item& item) {
      item.accelerator = {key_code, shift_pressed, ctrl_pressed, alt_pressed};
    });
  }
  bool RemoveAccelerator(int command_id) override {
    return RemoveAcceleratorAt(Position(command_id));
  }
  bool RemoveAcceleratorAt(size_t index) override {
    return HasAcceleratorAt(index) && Set(At(index), [](Item& item) { item.accelerator.reset(); });
  }
  bool GetAccelerator(int command_id,
                      int& key_code,
                      bool& shift_pressed,
                      bool& ctrl_pressed,
                      bool& alt_pressed) override {
    return GetAcceleratorAt(Position(command_id), key_code, shift_pressed, ctrl_pressed,
                            alt_pressed);
  }
  bool GetAcceleratorAt(size_t index,
                        int& key_code,
                        bool& shift_pressed,
                        bool& ctrl_pressed,
                        bool& alt_pressed) override {
    const Item* const item = At(index);
    if (!item || !item->accelerator) {
      return false;
    }
    key_code = item->accelerator->key_code;
    shift_pressed = item->accelerator->shift;
    ctrl_pressed = item->accelerator->ctrl;
    alt_pressed = item->accelerator->alt;
    return true;
  }

  bool SetColor(int command_id, cef_menu_color_type_t color_type, cef_color_t color) override {
    return SetColorOf(At(Position(command_id)), color_type, color);
  }
  // -1 stands for the colour of items that have none of their own.
  bool SetColorAt(int index, cef_menu_color_type_t color_type, cef_color_t color) override {
    return SetColorOf(AtOrDefault(index), color_type, color);
  }
  bool GetColor(int command_id, cef_menu_color_type_t color_type, cef_color_t& color) override {
    return GetColorOf(At(Position(command_id)), color_type, color);
  }
  bool GetColorAt(int index, cef_menu_color_type_t color_type, cef_color_t& color) override {
    return GetColorOf(AtOrDefault(index), color_type, color);
  }

  bool SetFontList(int command_id, const CefString& font_list) override {
    return Set(At(Position(command_id)), [&](Item& item) { item.font_list = font_list; });
  }
  bool SetFontListAt(int index, const CefString& font_list) override {
    return Set(AtOrDefault(index), [&](Item& item) { item.font_list = font_list; });
  }

 private:
  // Past the end when no item has that id.
  size_t Position(int command_id) const {
    size_t index = 0;
    while (index < items_.size() && (items_[index].type == MENUITEMTYPE_SEPARATOR ||
                                     items_[index].command_id != command_id)) {
      ++index;
    }
    return index;
  }

  Item* At(size_t index) { return index < items_.size() ? &items_[index] : nullptr; }
  Item* AtOrDefault(int index) {
    return index == -1 ? &defaults_ : index < 0 ? nullptr : At(static_cast<size_t>(index));
  }

  bool Insert(size_t index, Item item) {
    if (index > items_.size()) {
      return false;
    }
    items_.insert(items_.begin() + static_cast<ptrdiff_t>(index), std::move(item));
    return true;
  }

  bool InsertLabelled(size_t index,
                      MenuItemType type,
                      int command_id,
                      const CefString& label,
                      int group_id = -1) {
    Item item;
    item.type = type;
    item.command_id = command_id;
    item.label = label;
    item.group_id = group_id;
    return !label.empty() && Insert(index, std::move(item));
  }

  template <typename T, typename Getter>
  static T Get(const Item* item, T fallback, Getter getter) {
    return item ? getter(*item) : fallback;
  }
  template <typename Setter>
  static bool Set(Item* item, Setter setter) {
    if (item) {
      setter(*item);
    }
    return item != nullptr;
  }

  static bool SetColorOf(Item* item, cef_menu_color_type_t type, cef_color_t color) {
    return type >= 0 && type < CEF_MENU_COLOR_COUNT &&
           Set(item, [&](Item& changed) { changed.colors[type] = color; });
  }
  static bool GetColorOf(const Item* item, cef_menu_color_type_t type, cef_color_t& color) {
    if (!item || type < 0 || type >= CEF_MENU_COLOR_COUNT) {
      return false;
    }
    color = item->colors[type];
    return true;
  }

  const bool is_sub_menu_;
  std::vector<Item> items_;
  Item defaults_;

  IMPLEMENT_REFCOUNTING(MenuModel);
};

}  // namespace

CefRefPtr<CefMenuModel> MakeMenuModel() {
  return new MenuModel(false);
}

}  // namespace cefedition

// The edition shows no menus, so the delegate of one that a client makes has nothing to hear.
CefRefPtr<CefMenuModel> CefMenuModel::CreateMenuModel(CefRefPtr<CefMenuModelDelegate> delegate) {
  return delegate ? cefedition::MakeMenuModel() : nullptr;
}
