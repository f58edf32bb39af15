#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "devtools/view/input_command.h"
#include "devtools/view/text_assembler.h"

namespace cefedition {

// Window messages in, protocol commands out. Everything a message does not say itself is passed in,
// so that nothing here needs a window or Windows.

/// A window message as the window procedure gets it, in fixed-width types.
struct WindowMessage {
  uint32_t message = 0;
  uint64_t wparam = 0;
  int64_t lparam = 0;
};

/// Which modifier keys are held down when a message is handled.
struct HeldKeys {
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool meta = false;
};

/// The protocol's modifier bits.
int ModifiersOf(const HeldKeys& keys);

/// Tells double and triple clicks from single ones, as the system does: by the button, the time
/// and the distance since the press before. One object a window.
class ClickCounter {
 public:
  struct Limits {
    uint32_t time_ms = 500;
    /// How far the pointer may have moved, in physical pixels either way.
    int distance_x = 2;
    int distance_y = 2;
  };

  /// Counts a press at a position in physical pixels; `time_ms` is the message's time, which may
  /// wrap around. At least `minimum` is answered: 2 for a message that itself says double click.
  int Press(MouseButton button,
            int x,
            int y,
            uint32_t time_ms,
            const Limits& limits,
            int minimum = 1);

  /// The count of the press that a release of `button` ends; 1 if it was never pressed.
  int Release(MouseButton button) const;

 private:
  MouseButton button_ = MouseButton::kNone;
  int x_ = 0;
  int y_ = 0;
  uint32_t time_ms_ = 0;
  int count_ = 0;
};

struct MouseContext {
  HeldKeys keys{};
  /// Physical pixels in one CSS pixel. Anything not above 0 counts as 1.
  double scale = 1.0;
  /// Where the client area's top left corner is on the screen: wheel messages carry positions on
  /// the screen, unlike all others.
  int origin_x = 0;
  int origin_y = 0;
  /// The message's time.
  uint32_t time_ms = 0;
  ClickCounter::Limits click_limits{};
};

/// The command of a WM_MOUSEMOVE, a button message, a wheel message or WM_MOUSELEAVE; nothing for
/// any other message.
std::optional<InputCommand> TranslateMouseMessage(const WindowMessage& message,
                                                  const MouseContext& context,
                                                  ClickCounter& clicks);

struct KeyContext {
  HeldKeys keys{};
  /// What the key types on the user's keyboard with Shift as it is but without Control and Alt,
  /// UTF-8. Empty when it types nothing or that is not known; then a US keyboard is assumed.
  std::string layout_text{};
  /// The key is a dead key on the user's keyboard: it waits for the letter to put its accent on.
  bool dead_key = false;
  bool caps_lock = false;
  bool num_lock = false;
};

/// The command of a WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_CHAR, WM_UNICHAR or
/// WM_IME_CHAR; nothing for any other message, and none for half a character. WM_SYSCHAR gives
/// nothing, because Alt with a letter types nothing.
std::optional<InputCommand> TranslateKeyMessage(const WindowMessage& message,
                                                const KeyContext& context,
                                                TextAssembler& text);

}  // namespace cefedition
