#include "devtools/view/popup_menu.h"

#include <array>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace cefedition {
namespace {

struct MenuDestroyer {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using UniqueMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDestroyer>;

/// "Ctrl+Shift+A", with the keyboard's own names of keys.
std::wstring AcceleratorText(int key_code, bool shift, bool ctrl, bool alt) {
  std::wstring text;
  text += ctrl ? L"Ctrl+" : L"";
  text += alt ? L"Alt+" : L"";
  text += shift ? L"Shift+" : L"";
  std::array<wchar_t, 64> name{};
  const UINT scan_code = MapVirtualKeyW(static_cast<UINT>(key_code), MAPVK_VK_TO_VSC);
  const int length = GetKeyNameTextW(static_cast<LONG>(scan_code << 16U), name.data(),
                                     static_cast<int>(name.size()));
  return text.append(name.data(), static_cast<size_t>(length));
}

std::wstring TextOf(CefMenuModel& model, size_t index) {
  std::wstring text = model.GetLabelAt(index).ToWString();
  int key_code = 0;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
  if (model.GetAcceleratorAt(index, key_code, shift, ctrl, alt)) {
    text += L"\t" + AcceleratorText(key_code, shift, ctrl, alt);
  }
  return text;
}

/// A model's items get numbers from 1 on in `commands`, because their ids may be any number, and
/// the system means "none" by 0.
UniqueMenu Build(CefMenuModel& model, std::vector<int>& commands) {
  UniqueMenu menu(CreatePopupMenu());
  for (size_t index = 0; index < model.GetCount(); ++index) {
    if (!model.IsVisibleAt(index)) {
      continue;
    }
    const cef_menu_item_type_t type = model.GetTypeAt(index);
    if (type == MENUITEMTYPE_SEPARATOR) {
      AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
      continue;
    }
    std::wstring text = TextOf(model, index);
    MENUITEMINFOW item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STRING | MIIM_ID | MIIM_STATE | MIIM_FTYPE;
    item.fType = type == MENUITEMTYPE_RADIO ? MFT_RADIOCHECK : 0;
    item.fState = static_cast<UINT>(model.IsEnabledAt(index) ? MFS_ENABLED : MFS_DISABLED) |
                  static_cast<UINT>(model.IsCheckedAt(index) ? MFS_CHECKED : MFS_UNCHECKED);
    item.dwTypeData = text.data();
    commands.push_back(model.GetCommandIdAt(index));
    item.wID = static_cast<UINT>(commands.size());
    UniqueMenu sub_menu;
    if (const CefRefPtr<CefMenuModel> below = model.GetSubMenuAt(index)) {
      sub_menu = Build(*below, commands);
      item.fMask |= MIIM_SUBMENU;
      item.hSubMenu = sub_menu.get();
    }
    if (InsertMenuItemW(menu.get(), static_cast<UINT>(-1), TRUE, &item)) {
      // The menu destroys those below it.
      static_cast<void>(sub_menu.release());
    }
  }
  return menu;
}

}  // namespace

std::optional<int> ShowPopupMenu(HWND owner, POINT at, CefMenuModel& model) {
  std::vector<int> commands;
  const UniqueMenu menu = Build(model, commands);
  const BOOL chosen = TrackPopupMenuEx(
      menu.get(), TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY,
      at.x, at.y, owner, nullptr);
  const auto number = static_cast<size_t>(chosen);
  if (chosen <= 0 || number > commands.size()) {
    return std::nullopt;
  }
  return commands[number - 1];
}

cef_event_flags_t HeldKeyFlags() {
  const auto flag = [](int key, cef_event_flags_t value) {
    return GetKeyState(key) < 0 ? static_cast<int>(value) : 0;
  };
  return static_cast<cef_event_flags_t>(flag(VK_SHIFT, EVENTFLAG_SHIFT_DOWN) |
                                        flag(VK_CONTROL, EVENTFLAG_CONTROL_DOWN) |
                                        flag(VK_MENU, EVENTFLAG_ALT_DOWN));
}

}  // namespace cefedition
