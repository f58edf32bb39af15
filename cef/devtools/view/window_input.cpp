#include "devtools/view/window_input.h"

#include <array>

#include "devtools/view/window_message_numbers.h"

namespace cefedition {
namespace {

static_assert(kWmKeyDown == WM_KEYDOWN && kWmKeyUp == WM_KEYUP && kWmChar == WM_CHAR);
static_assert(kWmSysKeyDown == WM_SYSKEYDOWN && kWmSysKeyUp == WM_SYSKEYUP);
static_assert(kWmUniChar == WM_UNICHAR && kWmImeChar == WM_IME_CHAR);
static_assert(kWmMouseMove == WM_MOUSEMOVE && kWmMouseLeave == WM_MOUSELEAVE);
static_assert(kWmMouseWheel == WM_MOUSEWHEEL && kWmMouseHWheel == WM_MOUSEHWHEEL);
static_assert(kWmLButtonDown == WM_LBUTTONDOWN && kWmLButtonUp == WM_LBUTTONUP &&
              kWmLButtonDblClk == WM_LBUTTONDBLCLK);
static_assert(kWmRButtonDown == WM_RBUTTONDOWN && kWmRButtonUp == WM_RBUTTONUP &&
              kWmRButtonDblClk == WM_RBUTTONDBLCLK);
static_assert(kWmMButtonDown == WM_MBUTTONDOWN && kWmMButtonUp == WM_MBUTTONUP &&
              kWmMButtonDblClk == WM_MBUTTONDBLCLK);
static_assert(kWmXButtonDown == WM_XBUTTONDOWN && kWmXButtonUp == WM_XBUTTONUP &&
              kWmXButtonDblClk == WM_XBUTTONDBLCLK);

using KeyboardState = std::array<BYTE, 256>;

constexpr BYTE kDown = 0x80;
// ToUnicodeEx leaves a dead key that the user has struck alone.
constexpr UINT kKeepKeyboardState = 1U << 2U;

bool IsDown(int virtual_key) {
  return GetKeyState(virtual_key) < 0;
}

/// Of a key that locks.
bool IsOn(int virtual_key) {
  return (static_cast<unsigned>(GetKeyState(virtual_key)) & 1U) != 0;
}

HeldKeys ReadHeldKeys() {
  return {.shift = IsDown(VK_SHIFT),
          .control = IsDown(VK_CONTROL),
          .alt = IsDown(VK_MENU),
          .meta = IsDown(VK_LWIN) || IsDown(VK_RWIN)};
}

void ReleaseShortcutKeys(KeyboardState& state) {
  // AltGr is Control and Alt together, and does belong to what a key types.
  if ((state[VK_CONTROL] & kDown) != 0 && (state[VK_MENU] & kDown) != 0)
    return;
  for (const int key : {VK_CONTROL, VK_LCONTROL, VK_RCONTROL, VK_MENU, VK_LMENU, VK_RMENU})
    state[static_cast<size_t>(key)] = 0;
}

bool IsKeyMessage(uint32_t message) {
  return message == kWmKeyDown || message == kWmKeyUp || message == kWmSysKeyDown ||
         message == kWmSysKeyUp;
}

}  // namespace

MouseContext ReadMouseContext(HWND window, double scale) {
  POINT origin{};
  ClientToScreen(window, &origin);
  return {.keys = ReadHeldKeys(),
          .scale = scale,
          .origin_x = origin.x,
          .origin_y = origin.y,
          .time_ms = static_cast<uint32_t>(GetMessageTime()),
          .click_limits = {.time_ms = GetDoubleClickTime(),
                           .distance_x = GetSystemMetrics(SM_CXDOUBLECLK) / 2,
                           .distance_y = GetSystemMetrics(SM_CYDOUBLECLK) / 2}};
}

KeyContext ReadKeyContext(const WindowMessage& message) {
  KeyContext context{.keys = ReadHeldKeys(),
                     .layout_text = {},
                     .dead_key = false,
                     .caps_lock = IsOn(VK_CAPITAL),
                     .num_lock = IsOn(VK_NUMLOCK)};
  if (!IsKeyMessage(message.message))
    return context;
  KeyboardState state{};
  if (!GetKeyboardState(state.data()))
    return context;
  ReleaseShortcutKeys(state);
  const auto virtual_key = static_cast<UINT>(message.wparam & 0xFFU);
  const auto scan_code = static_cast<UINT>((static_cast<uint64_t>(message.lparam) >> 16U) & 0xFFU);
  std::array<wchar_t, 8> typed{};
  const int length =
      ToUnicodeEx(virtual_key, scan_code, state.data(), typed.data(),
                  static_cast<int>(typed.size()), kKeepKeyboardState, GetKeyboardLayout(0));
  context.dead_key = length < 0;
  TextAssembler assembler;
  for (int at = 0; at < length; ++at) {
    if (typed[static_cast<size_t>(at)] >= 0x20) {
      context.layout_text +=
          assembler.Add(static_cast<uint16_t>(typed[static_cast<size_t>(at)])).value_or("");
    }
  }
  return context;
}

}  // namespace cefedition
