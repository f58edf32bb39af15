#pragma once

#include <windows.h>

#include <optional>

#include "include/cef_menu_model.h"

namespace cefedition {

/// Shows a menu on the screen at a point and waits until the user has chosen or given up; the
/// system runs a message loop meanwhile, which `EndMenu` on the same thread ends. `owner` is a
/// window of the calling thread. Answers the command's id; nothing when none was chosen, or another
/// menu is open.
std::optional<int> ShowPopupMenu(HWND owner, POINT at, CefMenuModel& model);

/// The modifier keys held down now.
cef_event_flags_t HeldKeyFlags();

}  // namespace cefedition
