// Mouse and keyboard input for a browser's window, as posted messages to that of the engine's
// windows inside it which would get them: the person at the desk is not needed, and neither is the
// focus.
#pragma once

#include <windows.h>

#include <string>

namespace kzhost {

enum class MouseButton { kLeft, kRight };

// A click at a position of the client area. False without a window.
bool PostClick(HWND window, MouseButton button, int x, int y);

// The keys for a text; "\n" is the Enter key, "\t" Tab, "\b" Backspace, U+001B Escape. False
// without a window.
bool PostText(HWND window, const std::wstring& text);

}  // namespace kzhost
