#pragma once

#include "include/cef_menu_model.h"

namespace cefedition {

// A menu without a delegate, as the engine fills it before OnBeforeContextMenu.
CefRefPtr<CefMenuModel> MakeMenuModel();

}  // namespace cefedition
