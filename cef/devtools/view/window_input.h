#pragma once

#include <windows.h>

#include "devtools/view/input_translation.h"

namespace cefedition {

// What the translation of a message needs to know beside it, read from the system. To be called
// while the message is being handled, on the window's thread.

MouseContext ReadMouseContext(HWND window, double scale);

KeyContext ReadKeyContext(const WindowMessage& message);

}  // namespace cefedition
