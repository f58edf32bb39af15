#pragma once

#include <cstdint>
#include <string>

namespace cefedition {

// The DOM's names of keys. Virtual keys and scan codes are Windows' own numbers; nothing here needs
// Windows.

/// One physical key event's identity.
struct KeyIdentity {
  int virtual_key = 0;
  /// The hardware's code of the key, 0 when unknown (a message that a program made up).
  int scan_code = 0;
  /// Set for the keys of the right-hand side and the navigation block.
  bool extended = false;
};

/// `KeyboardEvent.code`: the key by its place on the keyboard, from the scan code or, without one,
/// from where the virtual key lies on a US keyboard. Empty when unknown.
std::string CodeOf(const KeyIdentity& key);

/// `KeyboardEvent.key` of a key that types nothing ("Enter", "F5", "Shift"). Empty for the others.
std::string NameOfKey(int virtual_key);

/// What a key types on a US keyboard, UTF-8. Empty for keys that type nothing.
std::string UsKeyboardText(int virtual_key, bool shift);

/// Whether the key belongs to the numeric keypad.
bool IsKeypadKey(const KeyIdentity& key);

/// 1 for the left and 2 for the right one of Shift, Control, Alt and the Windows key, 0 otherwise.
int LocationOf(const KeyIdentity& key);

}  // namespace cefedition
