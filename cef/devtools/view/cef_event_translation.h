#pragma once

#include <optional>

#include "devtools/view/input_command.h"
#include "devtools/view/text_assembler.h"
#include "include/cef_browser.h"

namespace cefedition {

// What a host sends through CefBrowserHost's Send...Event members, as protocol commands.
// Coordinates are CSS pixels on both sides.

/// For `SendKeyEvent`. `text` is the browser's own, because a character beyond the basic plane
/// comes as two events; there is no command for the first of these, nor for a character 0.
std::optional<InputCommand> TranslateKeyEvent(const CefKeyEvent& event, TextAssembler& text);

/// For `SendMouseClickEvent`. A `click_count` below 1 counts as 1.
InputCommand TranslateMouseClickEvent(const CefMouseEvent& event,
                                      CefBrowserHost::MouseButtonType type,
                                      bool mouse_up,
                                      int click_count);

/// For `SendMouseMoveEvent`.
InputCommand TranslateMouseMoveEvent(const CefMouseEvent& event, bool mouse_leave);

/// For `SendMouseWheelEvent`: positive deltas scroll towards the top and the left.
InputCommand TranslateMouseWheelEvent(const CefMouseEvent& event, int delta_x, int delta_y);

}  // namespace cefedition
