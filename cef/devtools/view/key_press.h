#pragma once

#include <windows.h>

#include "devtools/view/input_command.h"
#include "devtools/view/input_translation.h"
#include "include/internal/cef_types_wrappers.h"

namespace cefedition {

/// A key that is pressed or let go, or a character that it types: as the client is asked about it,
/// and as the page is told of it.
struct KeyPress {
  CefKeyEvent event;
  /// The window message behind it; its `hwnd` is null for a key that the host has sent.
  MSG message{};
  InputCommand command;
};

/// A key message as the client is told of it. The native code is the message's lparam, as in the
/// events that a host sends. Whether one can write where the focus is stays open (0).
CefKeyEvent MakeKeyEvent(const WindowMessage& message, const KeyContext& context);

}  // namespace cefedition
