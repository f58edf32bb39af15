#include "devtools/view/cef_event_translation.h"

#include <algorithm>
#include <string>

#include "devtools/view/key_names.h"

namespace cefedition {
namespace {

int ModifiersOf(uint32_t flags) {
  int modifiers = 0;
  if ((flags & EVENTFLAG_ALT_DOWN) != 0)
    modifiers |= kAltModifier;
  if ((flags & EVENTFLAG_CONTROL_DOWN) != 0)
    modifiers |= kControlModifier;
  if ((flags & EVENTFLAG_COMMAND_DOWN) != 0)
    modifiers |= kMetaModifier;
  if ((flags & EVENTFLAG_SHIFT_DOWN) != 0)
    modifiers |= kShiftModifier;
  return modifiers;
}

int HeldButtonsOf(uint32_t flags) {
  int held = 0;
  if ((flags & EVENTFLAG_LEFT_MOUSE_BUTTON) != 0)
    held |= static_cast<int>(MouseButton::kLeft);
  if ((flags & EVENTFLAG_RIGHT_MOUSE_BUTTON) != 0)
    held |= static_cast<int>(MouseButton::kRight);
  if ((flags & EVENTFLAG_MIDDLE_MOUSE_BUTTON) != 0)
    held |= static_cast<int>(MouseButton::kMiddle);
  return held;
}

MouseButton FirstHeldButtonOf(uint32_t flags) {
  const int held = HeldButtonsOf(flags);
  for (const MouseButton button : {MouseButton::kLeft, MouseButton::kRight, MouseButton::kMiddle}) {
    if ((held & static_cast<int>(button)) != 0)
      return button;
  }
  return MouseButton::kNone;
}

MouseButton ButtonOf(CefBrowserHost::MouseButtonType type) {
  switch (type) {
    case MBT_MIDDLE:
      return MouseButton::kMiddle;
    case MBT_RIGHT:
      return MouseButton::kRight;
    case MBT_LEFT:
      break;
  }
  return MouseButton::kLeft;
}

MouseInput MouseInputOf(const CefMouseEvent& event) {
  return {.x = static_cast<double>(event.x),
          .y = static_cast<double>(event.y),
          .modifiers = ModifiersOf(event.modifiers),
          .buttons = HeldButtonsOf(event.modifiers)};
}

/// On Windows the native code is the key message's lparam; one without a scan code is a host's own
/// making.
KeyIdentity IdentityOf(const CefKeyEvent& event) {
  const auto bits = static_cast<uint32_t>(event.native_key_code);
  return {.virtual_key = event.windows_key_code,
          .scan_code = static_cast<int>((bits >> 16U) & 0xFFU),
          .extended = (bits & (1U << 24U)) != 0};
}

int LocationOf(const CefKeyEvent& event) {
  if ((event.modifiers & EVENTFLAG_IS_LEFT) != 0)
    return 1;
  if ((event.modifiers & EVENTFLAG_IS_RIGHT) != 0)
    return 2;
  return cefedition::LocationOf(IdentityOf(event));
}

std::string KeyOf(const CefKeyEvent& event) {
  std::string key = NameOfKey(event.windows_key_code);
  if (key.empty() && event.character > 0x20)
    key = CodePointToUtf8(event.character);
  if (key.empty()) {
    key = UsKeyboardText(event.windows_key_code, (event.modifiers & EVENTFLAG_SHIFT_DOWN) != 0);
  }
  return key.empty() ? "Unidentified" : key;
}

}  // namespace

std::optional<InputCommand> TranslateKeyEvent(const CefKeyEvent& event, TextAssembler& text) {
  KeyIdentity identity = IdentityOf(event);
  KeyInput input;
  input.modifiers = ModifiersOf(event.modifiers);
  input.virtual_key = event.windows_key_code;
  input.auto_repeat = (event.modifiers & EVENTFLAG_IS_REPEAT) != 0;
  input.keypad = (event.modifiers & EVENTFLAG_IS_KEY_PAD) != 0 || IsKeypadKey(identity);
  input.system_key = event.is_system_key != 0;
  if (event.type == KEYEVENT_CHAR) {
    // A host that hands on WM_CHAR puts the character where key events have the key.
    const int unit = event.windows_key_code != 0 ? event.windows_key_code : event.character;
    if (unit <= 0 || unit > 0xFFFF)
      return std::nullopt;
    const std::optional<std::string> typed = text.Add(static_cast<uint16_t>(unit));
    if (!typed)
      return std::nullopt;
    // The number is the character's now and no longer a key's.
    identity.virtual_key = 0;
    input.action = KeyAction::kChar;
    input.virtual_key = unit;
    input.key = *typed;
    input.text = *typed;
    input.code = CodeOf(identity);
    input.keypad = (event.modifiers & EVENTFLAG_IS_KEY_PAD) != 0;
    return MakeKeyCommand(input);
  }
  input.action = event.type == KEYEVENT_KEYUP ? KeyAction::kUp : KeyAction::kDown;
  input.key = KeyOf(event);
  input.code = CodeOf(identity);
  input.location = LocationOf(event);
  return MakeKeyCommand(input);
}

InputCommand TranslateMouseClickEvent(const CefMouseEvent& event,
                                      CefBrowserHost::MouseButtonType type,
                                      bool mouse_up,
                                      int click_count) {
  MouseInput input = MouseInputOf(event);
  input.button = ButtonOf(type);
  input.click_count = std::max(click_count, 1);
  // Hosts differ in whether the flags count the button itself.
  if (mouse_up) {
    input.action = MouseAction::kRelease;
    input.buttons &= ~static_cast<int>(input.button);
  } else {
    input.action = MouseAction::kPress;
    input.buttons |= static_cast<int>(input.button);
  }
  return MakeMouseCommand(input);
}

InputCommand TranslateMouseMoveEvent(const CefMouseEvent& event, bool mouse_leave) {
  MouseInput input = MouseInputOf(event);
  if (mouse_leave) {
    // As for a window: only a place outside the page takes the pointer off everything.
    input.x = input.y = -1;
  } else {
    input.button = FirstHeldButtonOf(event.modifiers);
  }
  return MakeMouseCommand(input);
}

InputCommand TranslateMouseWheelEvent(const CefMouseEvent& event, int delta_x, int delta_y) {
  MouseInput input = MouseInputOf(event);
  input.action = MouseAction::kWheel;
  input.delta_x = -static_cast<double>(delta_x);
  input.delta_y = -static_cast<double>(delta_y);
  return MakeMouseCommand(input);
}

}  // namespace cefedition
