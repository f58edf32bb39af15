#include "devtools/view/window_input.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

namespace cefedition {
namespace {

// Holds keys down on this thread's keyboard only, for the length of a test.
class HeldDown {
 public:
  HeldDown(std::initializer_list<int> keys) {
    GetKeyboardState(before_.data());
    auto state = before_;
    for (const int key : keys)
      state[static_cast<size_t>(key)] = 0x80;
    SetKeyboardState(state.data());
  }
  ~HeldDown() { SetKeyboardState(before_.data()); }

 private:
  std::array<BYTE, 256> before_{};
};

// On the US keyboard that a fresh Wine prefix has.
KeyContext KeyDown(int virtual_key, int scan_code) {
  return ReadKeyContext({WM_KEYDOWN, static_cast<uint64_t>(virtual_key),
                         1 | (static_cast<int64_t>(scan_code) << 16)});
}

TEST(WindowInput, ReadsTheModifierKeys) {
  const HeldDown held{VK_SHIFT, VK_LSHIFT, VK_MENU, VK_LMENU, VK_RWIN};
  const KeyContext context = KeyDown('A', 0x1E);
  EXPECT_TRUE(context.keys.shift);
  EXPECT_TRUE(context.keys.alt);
  EXPECT_TRUE(context.keys.meta);
  EXPECT_FALSE(context.keys.control);
}

TEST(WindowInput, ReadsWhatAKeyTypes) {
  EXPECT_EQ(KeyDown('A', 0x1E).layout_text, "a");
  const HeldDown held{VK_SHIFT, VK_LSHIFT};
  EXPECT_EQ(KeyDown('A', 0x1E).layout_text, "A");
}

TEST(WindowInput, NamesAShortcutByItsLetter) {
  const HeldDown held{VK_CONTROL, VK_LCONTROL};
  const KeyContext context = KeyDown('A', 0x1E);
  EXPECT_EQ(context.layout_text, "a") << "and not by the control character";
  EXPECT_TRUE(context.keys.control);
}

TEST(WindowInput, ReadsNoTextOfAKeyThatTypesNone) {
  EXPECT_EQ(KeyDown(VK_F5, 0x3F).layout_text, "");
  EXPECT_EQ(KeyDown(VK_RETURN, 0x1C).layout_text, "") << "a control character is no text";
}

TEST(WindowInput, TakesTheSystemsDoubleClickTime) {
  const MouseContext context = ReadMouseContext(nullptr, 1.25);
  EXPECT_EQ(context.scale, 1.25);
  EXPECT_EQ(context.click_limits.time_ms, GetDoubleClickTime());
  EXPECT_EQ(context.click_limits.distance_x, GetSystemMetrics(SM_CXDOUBLECLK) / 2);
}

}  // namespace
}  // namespace cefedition
