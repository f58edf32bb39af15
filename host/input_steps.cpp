// Finds the window that input would reach and posts to it the messages that mouse and keyboard
// would make.

#include "input_steps.h"

namespace kzhost {
namespace {

constexpr LPARAM kOnePress = 1;
constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001);

LPARAM ScanCode(WPARAM key) {
  return static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC)) << 16;
}

// The key of a character; 0 for one that has none on this keyboard.
WPARAM KeyOf(wchar_t character) {
  switch (character) {
    case L'\n':
      return VK_RETURN;
    case L'\t':
      return VK_TAB;
    case L'\b':
      return VK_BACK;
    case L'\x1B':
      return VK_ESCAPE;
    default: {
      const SHORT key = VkKeyScanW(character);
      return key == -1 ? 0 : static_cast<WPARAM>(LOBYTE(key));
    }
  }
}

// Returns the window that a mouse at this position would reach, as the engine's own windows are
// nested, and converts `position` to that window.
HWND WindowAt(HWND window, POINT& position) {
  for (;;) {
    const HWND child = ChildWindowFromPointEx(window, position, CWP_SKIPINVISIBLE);
    if (!child || child == window) {
      return window;
    }
    MapWindowPoints(window, child, &position, 1);
    window = child;
  }
}

// Returns the window below `window` that has the keyboard focus. While none has it, that is the
// first of them, in which the engine takes its keys.
HWND WindowWithKeyboard(HWND window) {
  GUITHREADINFO thread = {};
  thread.cbSize = sizeof(thread);
  if (GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread) &&
      IsChild(window, thread.hwndFocus)) {
    return thread.hwndFocus;
  }
  const HWND child = GetWindow(window, GW_CHILD);
  return child ? child : window;
}

}  // namespace

bool PostClick(HWND window, MouseButton button, int x, int y) {
  if (!window) {
    return false;
  }
  POINT place = {x, y};
  window = WindowAt(window, place);
  const LPARAM position = MAKELPARAM(place.x, place.y);
  PostMessageW(window, WM_MOUSEMOVE, 0, position);
  if (button == MouseButton::kLeft) {
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, position);
    PostMessageW(window, WM_LBUTTONUP, 0, position);
  } else {
    PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, position);
    PostMessageW(window, WM_RBUTTONUP, 0, position);
  }
  return true;
}

bool PostText(HWND window, const std::wstring& text) {
  if (!window) {
    return false;
  }
  window = WindowWithKeyboard(window);
  for (const wchar_t character : text) {
    const WPARAM key = KeyOf(character);
    if (key == 0) {
      PostMessageW(window, WM_CHAR, character, kOnePress);
      continue;
    }
    // The window's own message loop makes the WM_CHAR of it where it translates messages.
    PostMessageW(window, WM_KEYDOWN, key, ScanCode(key) | kOnePress);
    PostMessageW(window, WM_KEYUP, key, ScanCode(key) | kReleased);
  }
  return true;
}

}  // namespace kzhost
