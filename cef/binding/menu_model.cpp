// include/cef_menu_model.h over the C API.

#include "include/cef_menu_model.h"

#include "binding.h"
#include "menu_ids.h"

namespace cefbinding {
namespace {

class MenuModelObject final : public LibraryObject<CefMenuModel> {
 public:
  explicit MenuModelObject(Struct* object) : LibraryObject(object) {}

  bool IsSubMenu() override { return Call(&Struct::is_sub_menu); }
  bool Clear() override { return Call(&Struct::clear); }
  size_t GetCount() override { return Call(&Struct::get_count); }
  bool AddSeparator() override { return Call(&Struct::add_separator); }
  bool AddItem(int command_id, const CefString& label) override {
    return Call(&Struct::add_item, EngineCommand(command_id), Needed(label));
  }
  bool AddCheckItem(int command_id, const CefString& label) override {
    return Call(&Struct::add_check_item, EngineCommand(command_id), Needed(label));
  }
  bool AddRadioItem(int command_id, const CefString& label, int group_id) override {
    return Call(&Struct::add_radio_item, EngineCommand(command_id), Needed(label), group_id);
  }
  CefRefPtr<CefMenuModel> AddSubMenu(int command_id, const CefString& label) override {
    return Call(&Struct::add_sub_menu, EngineCommand(command_id), Needed(label));
  }
  bool InsertSeparatorAt(size_t index) override {
    return Call(&Struct::insert_separator_at, index);
  }
  bool InsertItemAt(size_t index, int command_id, const CefString& label) override {
    return Call(&Struct::insert_item_at, index, EngineCommand(command_id), Needed(label));
  }
  bool InsertCheckItemAt(size_t index, int command_id, const CefString& label) override {
    return Call(&Struct::insert_check_item_at, index, EngineCommand(command_id), Needed(label));
  }
  bool InsertRadioItemAt(size_t index,
                         int command_id,
                         const CefString& label,
                         int group_id) override {
    return Call(&Struct::insert_radio_item_at, index, EngineCommand(command_id), Needed(label),
                group_id);
  }
  CefRefPtr<CefMenuModel> InsertSubMenuAt(size_t index,
                                          int command_id,
                                          const CefString& label) override {
    return Call(&Struct::insert_sub_menu_at, index, EngineCommand(command_id), Needed(label));
  }
  bool Remove(int command_id) override { return Call(&Struct::remove, EngineCommand(command_id)); }
  bool RemoveAt(size_t index) override { return Call(&Struct::remove_at, index); }
  int GetIndexOf(int command_id) override {
    return Call(&Struct::get_index_of, EngineCommand(command_id));
  }
  int GetCommandIdAt(size_t index) override {
    return KnownCommand(Call(&Struct::get_command_id_at, index));
  }
  bool SetCommandIdAt(size_t index, int command_id) override {
    return Call(&Struct::set_command_id_at, index, EngineCommand(command_id));
  }
  CefString GetLabel(int command_id) override {
    return Call(&Struct::get_label, EngineCommand(command_id));
  }
  CefString GetLabelAt(size_t index) override { return Call(&Struct::get_label_at, index); }
  bool SetLabel(int command_id, const CefString& label) override {
    return Call(&Struct::set_label, EngineCommand(command_id), Needed(label));
  }
  bool SetLabelAt(size_t index, const CefString& label) override {
    return Call(&Struct::set_label_at, index, Needed(label));
  }
  MenuItemType GetType(int command_id) override {
    return Call(&Struct::get_type, EngineCommand(command_id));
  }
  MenuItemType GetTypeAt(size_t index) override { return Call(&Struct::get_type_at, index); }
  int GetGroupId(int command_id) override {
    return Call(&Struct::get_group_id, EngineCommand(command_id));
  }
  int GetGroupIdAt(size_t index) override { return Call(&Struct::get_group_id_at, index); }
  bool SetGroupId(int command_id, int group_id) override {
    return Call(&Struct::set_group_id, EngineCommand(command_id), group_id);
  }
  bool SetGroupIdAt(size_t index, int group_id) override {
    return Call(&Struct::set_group_id_at, index, group_id);
  }
  CefRefPtr<CefMenuModel> GetSubMenu(int command_id) override {
    return Call(&Struct::get_sub_menu, EngineCommand(command_id));
  }
  CefRefPtr<CefMenuModel> GetSubMenuAt(size_t index) override {
    return Call(&Struct::get_sub_menu_at, index);
  }
  bool IsVisible(int command_id) override {
    return Call(&Struct::is_visible, EngineCommand(command_id));
  }
  bool IsVisibleAt(size_t index) override { return Call(&Struct::is_visible_at, index); }
  bool SetVisible(int command_id, bool visible) override {
    return Call(&Struct::set_visible, EngineCommand(command_id), visible);
  }
  bool SetVisibleAt(size_t index, bool visible) override {
    return Call(&Struct::set_visible_at, index, visible);
  }
  bool IsEnabled(int command_id) override {
    return Call(&Struct::is_enabled, EngineCommand(command_id));
  }
  bool IsEnabledAt(size_t index) override { return Call(&Struct::is_enabled_at, index); }
  bool SetEnabled(int command_id, bool enabled) override {
    return Call(&Struct::set_enabled, EngineCommand(command_id), enabled);
  }
  bool SetEnabledAt(size_t index, bool enabled) override {
    return Call(&Struct::set_enabled_at, index, enabled);
  }
  bool IsChecked(int command_id) override {
    return Call(&Struct::is_checked, EngineCommand(command_id));
  }
  bool IsCheckedAt(size_t index) override { return Call(&Struct::is_checked_at, index); }
  bool SetChecked(int command_id, bool checked) override {
    return Call(&Struct::set_checked, EngineCommand(command_id), checked);
  }
  bool SetCheckedAt(size_t index, bool checked) override {
    return Call(&Struct::set_checked_at, index, checked);
  }
  bool HasAccelerator(int command_id) override {
    return Call(&Struct::has_accelerator, EngineCommand(command_id));
  }
  bool HasAcceleratorAt(size_t index) override { return Call(&Struct::has_accelerator_at, index); }
  bool SetAccelerator(int command_id,
                      int key_code,
                      bool shift_pressed,
                      bool ctrl_pressed,
                      bool alt_pressed) override {
    return Call(&Struct::set_accelerator, EngineCommand(command_id), key_code, shift_pressed,
                ctrl_pressed, alt_pressed);
  }
  bool SetAcceleratorAt(size_t index,
                        int key_code,
                        bool shift_pressed,
                        bool ctrl_pressed,
                        bool alt_pressed) override {
    return Call(&Struct::set_accelerator_at, index, key_code, shift_pressed, ctrl_pressed,
                alt_pressed);
  }
  bool RemoveAccelerator(int command_id) override {
    return Call(&Struct::remove_accelerator, EngineCommand(command_id));
  }
  bool RemoveAcceleratorAt(size_t index) override {
    return Call(&Struct::remove_accelerator_at, index);
  }
  bool GetAccelerator(int command_id,
                      int& key_code,
                      bool& shift_pressed,
                      bool& ctrl_pressed,
                      bool& alt_pressed) override {
    return Call(&Struct::get_accelerator, EngineCommand(command_id), &key_code, &shift_pressed,
                &ctrl_pressed, &alt_pressed);
  }
  bool GetAcceleratorAt(size_t index,
                        int& key_code,
                        bool& shift_pressed,
                        bool& ctrl_pressed,
                        bool& alt_pressed) override {
    return Call(&Struct::get_accelerator_at, index, &key_code, &shift_pressed, &ctrl_pressed,
                &alt_pressed);
  }
  bool SetColor(int command_id, cef_menu_color_type_t color_type, cef_color_t color) override {
    return Call(&Struct::set_color, EngineCommand(command_id), color_type, color);
  }
  bool SetColorAt(int index, cef_menu_color_type_t color_type, cef_color_t color) override {
    return Call(&Struct::set_color_at, index, color_type, color);
  }
  bool GetColor(int command_id, cef_menu_color_type_t color_type, cef_color_t& color) override {
    return Call(&Struct::get_color, EngineCommand(command_id), color_type, &color);
  }
  bool GetColorAt(int index, cef_menu_color_type_t color_type, cef_color_t& color) override {
    return Call(&Struct::get_color_at, index, color_type, &color);
  }
  bool SetFontList(int command_id, const CefString& font_list) override {
    return Call(&Struct::set_font_list, EngineCommand(command_id), font_list);
  }
  bool SetFontListAt(int index, const CefString& font_list) override {
    return Call(&Struct::set_font_list_at, index, font_list);
  }
};

}  // namespace

template <>
CefRefPtr<CefMenuModel> Counterpart<CefMenuModel>::LibraryClass::Wrap(Struct* object) {
  return new MenuModelObject(object);
}

}  // namespace cefbinding
