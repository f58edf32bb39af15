#include "devtools/view/key_press.h"

#include "devtools/view/key_names.h"

namespace cefedition {
namespace {

uint32_t FlagIf(bool set, cef_event_flags_t flag) {
  return set ? static_cast<uint32_t>(flag) : 0;
}

uint32_t HeldFlags(const KeyContext& context) {
  return FlagIf(context.keys.shift, EVENTFLAG_SHIFT_DOWN) |
         FlagIf(context.keys.control, EVENTFLAG_CONTROL_DOWN) |
         FlagIf(context.keys.alt, EVENTFLAG_ALT_DOWN) |
         FlagIf(context.keys.meta, EVENTFLAG_COMMAND_DOWN) |
         FlagIf(context.caps_lock, EVENTFLAG_CAPS_LOCK_ON) |
         FlagIf(context.num_lock, EVENTFLAG_NUM_LOCK_ON);
}

}  // namespace

CefKeyEvent MakeKeyEvent(const WindowMessage& message, const KeyContext& context) {
  const auto bits = static_cast<uint64_t>(message.lparam);
  const KeyIdentity identity = {.virtual_key = static_cast<int>(message.wparam & 0xFFU),
                                .scan_code = static_cast<int>((bits >> 16U) & 0xFFU),
                                .extended = (bits & (1U << 24U)) != 0};
  CefKeyEvent event;
  event.native_key_code = static_cast<int>(message.lparam);
  event.is_system_key = message.message == WM_SYSKEYDOWN || message.message == WM_SYSKEYUP;
  event.modifiers = HeldFlags(context);
  if (message.message == WM_CHAR) {
    event.type = KEYEVENT_CHAR;
    event.windows_key_code = static_cast<int>(message.wparam & 0xFFFFU);
    event.character = static_cast<char16_t>(message.wparam & 0xFFFFU);
    event.unmodified_character = event.character;
    return event;
  }
  const bool down = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  event.type = down ? KEYEVENT_RAWKEYDOWN : KEYEVENT_KEYUP;
  event.windows_key_code = identity.virtual_key;
  const std::wstring typed = CefString(context.layout_text).ToWString();
  event.character = typed.empty() ? 0 : static_cast<char16_t>(typed.front());
  event.unmodified_character = event.character;
  const int location = LocationOf(identity);
  event.modifiers |= FlagIf(location == 1, EVENTFLAG_IS_LEFT) |
                     FlagIf(location == 2, EVENTFLAG_IS_RIGHT) |
                     FlagIf(IsKeypadKey(identity), EVENTFLAG_IS_KEY_PAD) |
                     FlagIf(down && (bits & (1U << 30U)) != 0, EVENTFLAG_IS_REPEAT);
  return event;
}

}  // namespace cefedition
