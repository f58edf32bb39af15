// Mouse and keyboard input for a browser, as messages posted to the one of the engine's windows
// inside it that would receive the input: neither a user nor the keyboard focus is needed.
#pragma once

#include <windows.h>

#include <string>

namespace kzhost {

enum class MouseButton { kLeft, kRight };

// Clicks at a position of the client area. Returns false without a window.
bool PostClick(HWND window, MouseButton button, int x, int y);

// Presses the keys for a text; "\n" is the Enter key, "\t" Tab, "\b" Backspace, U+001B Escape.
// Returns false without a window.
bool PostText(HWND window, const std::wstring& text);

}  // namespace kzhost
