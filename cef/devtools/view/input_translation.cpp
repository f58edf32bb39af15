#include "devtools/view/input_translation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

#include "devtools/view/key_names.h"
#include "devtools/view/window_message_numbers.h"

namespace cefedition {
namespace {

// The low word of a mouse message's wparam.
constexpr uint64_t kMkLButton = 0x01;
constexpr uint64_t kMkRButton = 0x02;
constexpr uint64_t kMkShift = 0x04;
constexpr uint64_t kMkControl = 0x08;
constexpr uint64_t kMkMButton = 0x10;
constexpr uint64_t kMkXButton1 = 0x20;
constexpr uint64_t kMkXButton2 = 0x40;

// One notch of a wheel, and what it scrolls by.
constexpr double kWheelDelta = 120;
constexpr double kPixelsPerNotch = 100;

constexpr uint64_t kUnicodeNoChar = 0xFFFF;

int LowWord(int64_t value) {
  return static_cast<int16_t>(static_cast<uint64_t>(value) & 0xFFFFU);
}

int HighWord(int64_t value) {
  return static_cast<int16_t>((static_cast<uint64_t>(value) >> 16U) & 0xFFFFU);
}

enum class ButtonStep { kDown, kUp, kDoubleClick };

struct ButtonRow {
  uint32_t message;
  MouseButton button;  // kNone: the message says itself which
  ButtonStep step;
};

constexpr ButtonRow kButtonMessages[] = {
    {kWmLButtonDown, MouseButton::kLeft, ButtonStep::kDown},
    {kWmLButtonUp, MouseButton::kLeft, ButtonStep::kUp},
    {kWmLButtonDblClk, MouseButton::kLeft, ButtonStep::kDoubleClick},
    {kWmRButtonDown, MouseButton::kRight, ButtonStep::kDown},
    {kWmRButtonUp, MouseButton::kRight, ButtonStep::kUp},
    {kWmRButtonDblClk, MouseButton::kRight, ButtonStep::kDoubleClick},
    {kWmMButtonDown, MouseButton::kMiddle, ButtonStep::kDown},
    {kWmMButtonUp, MouseButton::kMiddle, ButtonStep::kUp},
    {kWmMButtonDblClk, MouseButton::kMiddle, ButtonStep::kDoubleClick},
    {kWmXButtonDown, MouseButton::kNone, ButtonStep::kDown},
    {kWmXButtonUp, MouseButton::kNone, ButtonStep::kUp},
    {kWmXButtonDblClk, MouseButton::kNone, ButtonStep::kDoubleClick},
};

struct HeldButtonRow {
  uint64_t flag;
  MouseButton button;
};

// In the order in which a move names the button it drags with.
constexpr HeldButtonRow kHeldButtons[] = {
    {kMkLButton, MouseButton::kLeft},     {kMkRButton, MouseButton::kRight},
    {kMkMButton, MouseButton::kMiddle},   {kMkXButton1, MouseButton::kBack},
    {kMkXButton2, MouseButton::kForward},
};

int HeldButtons(uint64_t wparam) {
  int held = 0;
  for (const HeldButtonRow& row : kHeldButtons) {
    if ((wparam & row.flag) != 0)
      held |= static_cast<int>(row.button);
  }
  return held;
}

MouseButton FirstHeldButton(uint64_t wparam) {
  const auto* found = std::ranges::find_if(
      kHeldButtons, [&](const HeldButtonRow& row) { return (wparam & row.flag) != 0; });
  return found != std::end(kHeldButtons) ? found->button : MouseButton::kNone;
}

/// Shift and Control as they were when the message was made; the message does not carry the rest.
int MouseModifiers(uint64_t wparam, const HeldKeys& keys) {
  return ModifiersOf({.shift = (wparam & kMkShift) != 0,
                      .control = (wparam & kMkControl) != 0,
                      .alt = keys.alt,
                      .meta = keys.meta});
}

MouseButton XButton(uint64_t wparam) {
  switch ((wparam >> 16U) & 0xFFFFU) {
    case 1:
      return MouseButton::kBack;
    case 2:
      return MouseButton::kForward;
    default:
      return MouseButton::kNone;
  }
}

double UsableScale(double scale) {
  return std::isfinite(scale) && scale > 0 ? scale : 1.0;
}

MouseInput WheelInput(const WindowMessage& message, MouseInput input) {
  const double notches = HighWord(static_cast<int64_t>(message.wparam)) / kWheelDelta;
  input.action = MouseAction::kWheel;
  if (message.message == kWmMouseHWheel)
    input.delta_x = notches * kPixelsPerNotch;
  else if ((message.wparam & kMkShift) != 0)
    input.delta_x = -notches * kPixelsPerNotch;
  else
    input.delta_y = -notches * kPixelsPerNotch;
  return input;
}

KeyIdentity IdentityOf(const WindowMessage& message) {
  const auto bits = static_cast<uint64_t>(message.lparam);
  return {.virtual_key = static_cast<int>(message.wparam & 0xFFU),
          .scan_code = static_cast<int>((bits >> 16U) & 0xFFU),
          .extended = (bits & (1U << 24U)) != 0};
}

bool WasDownBefore(const WindowMessage& message) {
  return (static_cast<uint64_t>(message.lparam) & (1U << 30U)) != 0;
}

std::string KeyOf(const KeyIdentity& identity, const KeyContext& context) {
  if (context.dead_key)
    return "Dead";
  std::string key = NameOfKey(identity.virtual_key);
  if (key.empty())
    key = context.layout_text;
  if (key.empty())
    key = UsKeyboardText(identity.virtual_key, context.keys.shift);
  return key.empty() ? "Unidentified" : key;
}

InputCommand TranslateKey(const WindowMessage& message, const KeyContext& context) {
  const bool down = message.message == kWmKeyDown || message.message == kWmSysKeyDown;
  const bool system = message.message == kWmSysKeyDown || message.message == kWmSysKeyUp;
  const KeyIdentity identity = IdentityOf(message);
  return MakeKeyCommand({.action = down ? KeyAction::kDown : KeyAction::kUp,
                         .modifiers = ModifiersOf(context.keys),
                         .virtual_key = identity.virtual_key,
                         .key = KeyOf(identity, context),
                         .code = CodeOf(identity),
                         .text = {},
                         .location = LocationOf(identity),
                         .auto_repeat = down && WasDownBefore(message),
                         .keypad = IsKeypadKey(identity),
                         .system_key = system});
}

std::optional<InputCommand> TranslateChar(const WindowMessage& message,
                                          const KeyContext& context,
                                          TextAssembler& text) {
  const auto unit = static_cast<uint16_t>(message.wparam & 0xFFFFU);
  const std::optional<std::string> typed = text.Add(unit);
  if (!typed || unit == 0)
    return std::nullopt;
  HeldKeys keys = context.keys;
  // AltGr reports itself as Control and Alt together; a character that it typed is no shortcut.
  if (keys.control && keys.alt && unit >= 0x20)
    keys.control = keys.alt = false;
  KeyIdentity identity = IdentityOf(message);
  identity.virtual_key = 0;
  return MakeKeyCommand({.action = KeyAction::kChar,
                         .modifiers = ModifiersOf(keys),
                         .virtual_key = unit,
                         .key = *typed,
                         .code = CodeOf(identity),
                         .text = *typed,
                         .location = 0,
                         .auto_repeat = WasDownBefore(message),
                         .keypad = IsKeypadKey(identity),
                         .system_key = false});
}

std::optional<InputCommand> InsertText(const std::string& text) {
  // Control characters are keys, not text.
  if (text.empty() || static_cast<unsigned char>(text.front()) < 0x20)
    return std::nullopt;
  return MakeInsertTextCommand(text);
}

}  // namespace

int ModifiersOf(const HeldKeys& keys) {
  return (keys.alt ? kAltModifier : 0) | (keys.control ? kControlModifier : 0) |
         (keys.meta ? kMetaModifier : 0) | (keys.shift ? kShiftModifier : 0);
}

int ClickCounter::Press(MouseButton button,
                        int x,
                        int y,
                        uint32_t time_ms,
                        const Limits& limits,
                        int minimum) {
  const bool continues = button == button_ && count_ > 0 && time_ms - time_ms_ <= limits.time_ms &&
                         std::abs(x - x_) <= limits.distance_x &&
                         std::abs(y - y_) <= limits.distance_y;
  count_ = std::max(continues ? count_ + 1 : 1, minimum);
  button_ = button;
  x_ = x;
  y_ = y;
  time_ms_ = time_ms;
  return count_;
}

int ClickCounter::Release(MouseButton button) const {
  return button == button_ ? count_ : 1;
}

std::optional<InputCommand> TranslateMouseMessage(const WindowMessage& message,
                                                  const MouseContext& context,
                                                  ClickCounter& clicks) {
  if (message.message == kWmMouseLeave) {
    // The protocol has no leaving; a place outside the page takes the pointer off everything.
    return MakeMouseCommand({.x = -1, .y = -1, .modifiers = ModifiersOf(context.keys)});
  }

  const double scale = UsableScale(context.scale);
  const bool wheel = message.message == kWmMouseWheel || message.message == kWmMouseHWheel;
  const int x = LowWord(message.lparam);
  const int y = HighWord(message.lparam);
  MouseInput input{.x = (x - (wheel ? static_cast<double>(context.origin_x) : 0.0)) / scale,
                   .y = (y - (wheel ? static_cast<double>(context.origin_y) : 0.0)) / scale,
                   .modifiers = MouseModifiers(message.wparam, context.keys),
                   .buttons = HeldButtons(message.wparam)};
  if (wheel)
    return MakeMouseCommand(WheelInput(message, input));
  if (message.message == kWmMouseMove) {
    input.button = FirstHeldButton(message.wparam);
    return MakeMouseCommand(input);
  }

  const auto* row = std::ranges::find(kButtonMessages, message.message, &ButtonRow::message);
  if (row == std::end(kButtonMessages))
    return std::nullopt;
  input.button = row->button != MouseButton::kNone ? row->button : XButton(message.wparam);
  if (input.button == MouseButton::kNone)
    return std::nullopt;
  if (row->step == ButtonStep::kUp) {
    input.action = MouseAction::kRelease;
    input.click_count = clicks.Release(input.button);
  } else {
    input.action = MouseAction::kPress;
    input.click_count = clicks.Press(input.button, x, y, context.time_ms, context.click_limits,
                                     row->step == ButtonStep::kDoubleClick ? 2 : 1);
  }
  return MakeMouseCommand(input);
}

std::optional<InputCommand> TranslateKeyMessage(const WindowMessage& message,
                                                const KeyContext& context,
                                                TextAssembler& text) {
  switch (message.message) {
    case kWmKeyDown:
    case kWmKeyUp:
    case kWmSysKeyDown:
    case kWmSysKeyUp:
      return TranslateKey(message, context);
    case kWmChar:
      return TranslateChar(message, context, text);
    case kWmImeChar:
      return InsertText(
          text.Add(static_cast<uint16_t>(message.wparam & 0xFFFFU)).value_or(std::string()));
    case kWmUniChar:
      if (message.wparam == kUnicodeNoChar || message.wparam > 0x10FFFF)
        return std::nullopt;
      return InsertText(CodePointToUtf8(static_cast<uint32_t>(message.wparam)));
    default:
      return std::nullopt;
  }
}

}  // namespace cefedition
