#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace cefedition {

// What the DevTools protocol's Input domain is told. Nothing here needs Windows.

/// One protocol command, ready to be sent to a page's session.
struct InputCommand {
  std::string method;
  nlohmann::json params;
};

/// The protocol's bits for modifier keys.
enum Modifier : int {
  kAltModifier = 1,
  kControlModifier = 2,
  kMetaModifier = 4,
  kShiftModifier = 8,
};

/// Mouse buttons, by the protocol's bits for the set of those held down.
enum class MouseButton : int {
  kNone = 0,
  kLeft = 1,
  kRight = 2,
  kMiddle = 4,
  kBack = 8,
  kForward = 16,
};

enum class MouseAction { kMove, kPress, kRelease, kWheel };

struct MouseInput {
  MouseAction action = MouseAction::kMove;
  /// CSS pixels from the top left corner of the view; negative and beyond the view while captured.
  double x = 0;
  double y = 0;
  int modifiers = 0;
  /// The button that was pressed or released. For a move, one of those held down.
  MouseButton button = MouseButton::kNone;
  /// The buttons held down after the event, as `MouseButton` bits.
  int buttons = 0;
  /// 1 for a single click, 2 for a double click and so on; presses and releases only.
  int click_count = 0;
  /// CSS pixels to scroll by, right and down positive; wheel only.
  double delta_x = 0;
  double delta_y = 0;
};

enum class KeyAction { kDown, kUp, kChar };

struct KeyInput {
  KeyAction action = KeyAction::kDown;
  int modifiers = 0;
  /// The Windows virtual-key code; for `kChar` the character's code unit.
  int virtual_key = 0;
  /// DOM `KeyboardEvent.key` and `KeyboardEvent.code`, UTF-8; empty when unknown.
  std::string key;
  std::string code;
  /// What the key typed, UTF-8; `kChar` only.
  std::string text;
  /// 0, or 1 for the left and 2 for the right one of a pair of modifier keys.
  int location = 0;
  bool auto_repeat = false;
  bool keypad = false;
  bool system_key = false;
};

/// `Input.dispatchMouseEvent`.
InputCommand MakeMouseCommand(const MouseInput& input);

/// `Input.dispatchKeyEvent`.
InputCommand MakeKeyCommand(const KeyInput& input);

/// `Input.insertText`, for text that no key typed. `text` is UTF-8.
InputCommand MakeInsertTextCommand(const std::string& text);

}  // namespace cefedition
