#include "devtools/view/key_names.h"

#include <algorithm>
#include <iterator>

namespace cefedition {
namespace {

constexpr int kExtended = 0x100;

struct CodeRow {
  int scan_code;  // with kExtended
  int virtual_key;
  const char* code;
};

// The keys of a full keyboard. Where a virtual key stands more than once, its first row is the one
// that a message without a scan code means.
constexpr CodeRow kCodes[] = {
    {0x01, 0x1B, "Escape"},
    {0x02, '1', "Digit1"},
    {0x03, '2', "Digit2"},
    {0x04, '3', "Digit3"},
    {0x05, '4', "Digit4"},
    {0x06, '5', "Digit5"},
    {0x07, '6', "Digit6"},
    {0x08, '7', "Digit7"},
    {0x09, '8', "Digit8"},
    {0x0A, '9', "Digit9"},
    {0x0B, '0', "Digit0"},
    {0x0C, 0xBD, "Minus"},
    {0x0D, 0xBB, "Equal"},
    {0x0E, 0x08, "Backspace"},
    {0x0F, 0x09, "Tab"},
    {0x10, 'Q', "KeyQ"},
    {0x11, 'W', "KeyW"},
    {0x12, 'E', "KeyE"},
    {0x13, 'R', "KeyR"},
    {0x14, 'T', "KeyT"},
    {0x15, 'Y', "KeyY"},
    {0x16, 'U', "KeyU"},
    {0x17, 'I', "KeyI"},
    {0x18, 'O', "KeyO"},
    {0x19, 'P', "KeyP"},
    {0x1A, 0xDB, "BracketLeft"},
    {0x1B, 0xDD, "BracketRight"},
    {0x1C, 0x0D, "Enter"},
    {0x1D, 0x11, "ControlLeft"},
    {0x1D, 0xA2, "ControlLeft"},
    {0x1E, 'A', "KeyA"},
    {0x1F, 'S', "KeyS"},
    {0x20, 'D', "KeyD"},
    {0x21, 'F', "KeyF"},
    {0x22, 'G', "KeyG"},
    {0x23, 'H', "KeyH"},
    {0x24, 'J', "KeyJ"},
    {0x25, 'K', "KeyK"},
    {0x26, 'L', "KeyL"},
    {0x27, 0xBA, "Semicolon"},
    {0x28, 0xDE, "Quote"},
    {0x29, 0xC0, "Backquote"},
    {0x2A, 0x10, "ShiftLeft"},
    {0x2A, 0xA0, "ShiftLeft"},
    {0x2B, 0xDC, "Backslash"},
    {0x2C, 'Z', "KeyZ"},
    {0x2D, 'X', "KeyX"},
    {0x2E, 'C', "KeyC"},
    {0x2F, 'V', "KeyV"},
    {0x30, 'B', "KeyB"},
    {0x31, 'N', "KeyN"},
    {0x32, 'M', "KeyM"},
    {0x33, 0xBC, "Comma"},
    {0x34, 0xBE, "Period"},
    {0x35, 0xBF, "Slash"},
    {0x36, 0xA1, "ShiftRight"},
    {0x37, 0x6A, "NumpadMultiply"},
    {0x38, 0x12, "AltLeft"},
    {0x38, 0xA4, "AltLeft"},
    {0x39, 0x20, "Space"},
    {0x3A, 0x14, "CapsLock"},
    {0x3B, 0x70, "F1"},
    {0x3C, 0x71, "F2"},
    {0x3D, 0x72, "F3"},
    {0x3E, 0x73, "F4"},
    {0x3F, 0x74, "F5"},
    {0x40, 0x75, "F6"},
    {0x41, 0x76, "F7"},
    {0x42, 0x77, "F8"},
    {0x43, 0x78, "F9"},
    {0x44, 0x79, "F10"},
    {0x45, 0x13, "Pause"},
    {0x46, 0x91, "ScrollLock"},
    {0x47, 0x67, "Numpad7"},
    {0x48, 0x68, "Numpad8"},
    {0x49, 0x69, "Numpad9"},
    {0x4A, 0x6D, "NumpadSubtract"},
    {0x4B, 0x64, "Numpad4"},
    {0x4C, 0x65, "Numpad5"},
    {0x4C, 0x0C, "Numpad5"},
    {0x4D, 0x66, "Numpad6"},
    {0x4E, 0x6B, "NumpadAdd"},
    {0x4F, 0x61, "Numpad1"},
    {0x50, 0x62, "Numpad2"},
    {0x51, 0x63, "Numpad3"},
    {0x52, 0x60, "Numpad0"},
    {0x53, 0x6E, "NumpadDecimal"},
    {0x56, 0xE2, "IntlBackslash"},
    {0x57, 0x7A, "F11"},
    {0x58, 0x7B, "F12"},
    {0x59, 0x92, "NumpadEqual"},
    {0x64, 0x7C, "F13"},
    {0x65, 0x7D, "F14"},
    {0x66, 0x7E, "F15"},
    {0x67, 0x7F, "F16"},
    {0x68, 0x80, "F17"},
    {0x69, 0x81, "F18"},
    {0x6A, 0x82, "F19"},
    {0x6B, 0x83, "F20"},
    {0x6C, 0x84, "F21"},
    {0x6D, 0x85, "F22"},
    {0x6E, 0x86, "F23"},
    {0x70, 0x15, "KanaMode"},
    {0x73, 0xC1, "IntlRo"},
    {0x76, 0x87, "F24"},
    {0x79, 0x1C, "Convert"},
    {0x7B, 0x1D, "NonConvert"},
    {0x7D, 0xFF, "IntlYen"},
    {0x7E, 0x6C, "NumpadComma"},
    {kExtended | 0x10, 0xB1, "MediaTrackPrevious"},
    {kExtended | 0x19, 0xB0, "MediaTrackNext"},
    {kExtended | 0x1C, 0x0D, "NumpadEnter"},
    {kExtended | 0x1D, 0xA3, "ControlRight"},
    {kExtended | 0x20, 0xAD, "AudioVolumeMute"},
    {kExtended | 0x21, 0xB7, "LaunchApp2"},
    {kExtended | 0x22, 0xB3, "MediaPlayPause"},
    {kExtended | 0x24, 0xB2, "MediaStop"},
    {kExtended | 0x2E, 0xAE, "AudioVolumeDown"},
    {kExtended | 0x30, 0xAF, "AudioVolumeUp"},
    {kExtended | 0x32, 0xAC, "BrowserHome"},
    {kExtended | 0x35, 0x6F, "NumpadDivide"},
    {kExtended | 0x37, 0x2C, "PrintScreen"},
    {kExtended | 0x38, 0xA5, "AltRight"},
    {kExtended | 0x45, 0x90, "NumLock"},
    {kExtended | 0x46, 0x03, "Pause"},
    {kExtended | 0x47, 0x24, "Home"},
    {kExtended | 0x48, 0x26, "ArrowUp"},
    {kExtended | 0x49, 0x21, "PageUp"},
    {kExtended | 0x4B, 0x25, "ArrowLeft"},
    {kExtended | 0x4D, 0x27, "ArrowRight"},
    {kExtended | 0x4F, 0x23, "End"},
    {kExtended | 0x50, 0x28, "ArrowDown"},
    {kExtended | 0x51, 0x22, "PageDown"},
    {kExtended | 0x52, 0x2D, "Insert"},
    {kExtended | 0x53, 0x2E, "Delete"},
    {kExtended | 0x5B, 0x5B, "MetaLeft"},
    {kExtended | 0x5C, 0x5C, "MetaRight"},
    {kExtended | 0x5D, 0x5D, "ContextMenu"},
    {kExtended | 0x5E, 0xFF, "Power"},
    {kExtended | 0x5F, 0x5F, "Sleep"},
    {kExtended | 0x65, 0xAA, "BrowserSearch"},
    {kExtended | 0x66, 0xAB, "BrowserFavorites"},
    {kExtended | 0x67, 0xA8, "BrowserRefresh"},
    {kExtended | 0x68, 0xA9, "BrowserStop"},
    {kExtended | 0x69, 0xA7, "BrowserForward"},
    {kExtended | 0x6A, 0xA6, "BrowserBack"},
    {kExtended | 0x6B, 0xB6, "LaunchApp1"},
    {kExtended | 0x6C, 0xB4, "LaunchMail"},
    {kExtended | 0x6D, 0xB5, "MediaSelect"},
};

struct NameRow {
  int virtual_key;
  const char* name;
};

constexpr NameRow kNames[] = {
    {0x03, "Cancel"},
    {0x08, "Backspace"},
    {0x09, "Tab"},
    {0x0C, "Clear"},
    {0x0D, "Enter"},
    {0x10, "Shift"},
    {0x11, "Control"},
    {0x12, "Alt"},
    {0x13, "Pause"},
    {0x14, "CapsLock"},
    {0x15, "KanaMode"},
    {0x17, "JunjaMode"},
    {0x18, "FinalMode"},
    {0x19, "KanjiMode"},
    {0x1B, "Escape"},
    {0x1C, "Convert"},
    {0x1D, "NonConvert"},
    {0x1E, "Accept"},
    {0x1F, "ModeChange"},
    {0x21, "PageUp"},
    {0x22, "PageDown"},
    {0x23, "End"},
    {0x24, "Home"},
    {0x25, "ArrowLeft"},
    {0x26, "ArrowUp"},
    {0x27, "ArrowRight"},
    {0x28, "ArrowDown"},
    {0x29, "Select"},
    {0x2A, "Print"},
    {0x2B, "Execute"},
    {0x2C, "PrintScreen"},
    {0x2D, "Insert"},
    {0x2E, "Delete"},
    {0x2F, "Help"},
    {0x5B, "Meta"},
    {0x5C, "Meta"},
    {0x5D, "ContextMenu"},
    {0x5F, "Standby"},
    {0x90, "NumLock"},
    {0x91, "ScrollLock"},
    {0xA0, "Shift"},
    {0xA1, "Shift"},
    {0xA2, "Control"},
    {0xA3, "Control"},
    {0xA4, "Alt"},
    {0xA5, "Alt"},
    {0xA6, "BrowserBack"},
    {0xA7, "BrowserForward"},
    {0xA8, "BrowserRefresh"},
    {0xA9, "BrowserStop"},
    {0xAA, "BrowserSearch"},
    {0xAB, "BrowserFavorites"},
    {0xAC, "BrowserHome"},
    {0xAD, "AudioVolumeMute"},
    {0xAE, "AudioVolumeDown"},
    {0xAF, "AudioVolumeUp"},
    {0xB0, "MediaTrackNext"},
    {0xB1, "MediaTrackPrevious"},
    {0xB2, "MediaStop"},
    {0xB3, "MediaPlayPause"},
    {0xB4, "LaunchMail"},
    {0xB5, "LaunchMediaPlayer"},
    {0xB6, "LaunchApplication1"},
    {0xB7, "LaunchApplication2"},
    {0xE5, "Process"},
    {0xF6, "Attn"},
    {0xF7, "CrSel"},
    {0xF8, "ExSel"},
    {0xF9, "EraseEof"},
    {0xFA, "Play"},
};

struct TextRow {
  int virtual_key;
  char plain;
  char shifted;
};

constexpr TextRow kUsTexts[] = {
    {0x20, ' ', ' '},  {'0', '0', ')'},  {'1', '1', '!'},   {'2', '2', '@'},   {'3', '3', '#'},
    {'4', '4', '$'},   {'5', '5', '%'},  {'6', '6', '^'},   {'7', '7', '&'},   {'8', '8', '*'},
    {'9', '9', '('},   {0x6A, '*', '*'}, {0x6B, '+', '+'},  {0x6C, ',', ','},  {0x6D, '-', '-'},
    {0x6E, '.', '.'},  {0x6F, '/', '/'}, {0xBA, ';', ':'},  {0xBB, '=', '+'},  {0xBC, ',', '<'},
    {0xBD, '-', '_'},  {0xBE, '.', '>'}, {0xBF, '/', '?'},  {0xC0, '`', '~'},  {0xDB, '[', '{'},
    {0xDC, '\\', '|'}, {0xDD, ']', '}'}, {0xDE, '\'', '"'}, {0xE2, '\\', '|'},
};

constexpr int kFirstFunctionKey = 0x70;
constexpr int kLastFunctionKey = 0x87;
constexpr int kNumpad0 = 0x60;
constexpr int kNumpad9 = 0x69;
constexpr int kNumpadDivide = 0x6F;
constexpr int kReturn = 0x0D;
constexpr int kRightShiftScanCode = 0x36;

bool LiesOnKeypadBlock(int scan_code) {
  return scan_code >= 0x47 && scan_code <= 0x53;
}

}  // namespace

std::string CodeOf(const KeyIdentity& key) {
  const auto found = key.scan_code != 0
                         ? std::ranges::find(kCodes, key.scan_code | (key.extended ? kExtended : 0),
                                             &CodeRow::scan_code)
                         : std::ranges::find(kCodes, key.virtual_key, &CodeRow::virtual_key);
  return found != std::end(kCodes) ? found->code : "";
}

std::string NameOfKey(int virtual_key) {
  if (virtual_key >= kFirstFunctionKey && virtual_key <= kLastFunctionKey)
    return "F" + std::to_string(virtual_key - kFirstFunctionKey + 1);
  const auto* found = std::ranges::find(kNames, virtual_key, &NameRow::virtual_key);
  return found != std::end(kNames) ? found->name : "";
}

std::string UsKeyboardText(int virtual_key, bool shift) {
  if (virtual_key >= 'A' && virtual_key <= 'Z')
    return std::string(1, static_cast<char>(shift ? virtual_key : virtual_key - 'A' + 'a'));
  if (virtual_key >= kNumpad0 && virtual_key <= kNumpad9)
    return std::string(1, static_cast<char>('0' + (virtual_key - kNumpad0)));
  const auto* found = std::ranges::find(kUsTexts, virtual_key, &TextRow::virtual_key);
  if (found == std::end(kUsTexts))
    return {};
  return std::string(1, shift ? found->shifted : found->plain);
}

bool IsKeypadKey(const KeyIdentity& key) {
  if (key.virtual_key >= kNumpad0 && key.virtual_key <= kNumpadDivide)
    return true;
  if (key.virtual_key == kReturn)
    return key.extended;
  // With NumLock off the keypad's digits become the navigation keys, told from the real ones by
  // the missing extended mark.
  return LiesOnKeypadBlock(key.scan_code) && !key.extended;
}

int LocationOf(const KeyIdentity& key) {
  switch (key.virtual_key) {
    case 0x10:  // Shift
      return key.scan_code == kRightShiftScanCode ? 2 : 1;
    case 0x11:  // Control
    case 0x12:  // Alt
      return key.extended ? 2 : 1;
    case 0x5B:
    case 0xA0:
    case 0xA2:
    case 0xA4:
      return 1;
    case 0x5C:
    case 0xA1:
    case 0xA3:
    case 0xA5:
      return 2;
    default:
      return 0;
  }
}

}  // namespace cefedition
