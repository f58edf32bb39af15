#include "devtools/view/key_press.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

constexpr int64_t kScanCodeOfA = 0x1E << 16;
constexpr int64_t kRepeated = 1 << 30;
constexpr int64_t kExtended = 1 << 24;

TEST(KeyPress, ALetterIsADownWithItsCharacter) {
  KeyContext context;
  context.keys.shift = true;
  context.layout_text = "A";
  const CefKeyEvent event = MakeKeyEvent({WM_KEYDOWN, 'A', 1 | kScanCodeOfA}, context);
  EXPECT_EQ(event.type, KEYEVENT_RAWKEYDOWN);
  EXPECT_EQ(event.windows_key_code, 'A');
  EXPECT_EQ(event.native_key_code, 1 | kScanCodeOfA);
  EXPECT_EQ(event.modifiers, static_cast<uint32_t>(EVENTFLAG_SHIFT_DOWN));
  EXPECT_EQ(event.character, u'A');
  EXPECT_FALSE(event.is_system_key);
  EXPECT_FALSE(event.focus_on_editable_field);
}

TEST(KeyPress, ACharacterIsItsOwnKeyCode) {
  const CefKeyEvent event = MakeKeyEvent({WM_CHAR, 0x20AC, 1 | kScanCodeOfA}, {});
  EXPECT_EQ(event.type, KEYEVENT_CHAR);
  EXPECT_EQ(event.windows_key_code, 0x20AC);
  EXPECT_EQ(event.character, u'\u20ac');
}

TEST(KeyPress, TellsSidesRepetitionsLocksAndSystemKeys) {
  KeyContext context;
  context.keys.alt = true;
  context.caps_lock = true;
  context.num_lock = true;
  CefKeyEvent event =
      MakeKeyEvent({WM_SYSKEYDOWN, VK_MENU, 1 | (0x38 << 16) | kExtended | kRepeated}, context);
  EXPECT_TRUE(event.is_system_key);
  EXPECT_EQ(event.modifiers, static_cast<uint32_t>(EVENTFLAG_ALT_DOWN | EVENTFLAG_CAPS_LOCK_ON |
                                                   EVENTFLAG_NUM_LOCK_ON | EVENTFLAG_IS_RIGHT |
                                                   EVENTFLAG_IS_REPEAT));
  event = MakeKeyEvent({WM_KEYUP, VK_NUMPAD5, 1 | (0x4C << 16) | kRepeated}, {});
  EXPECT_EQ(event.type, KEYEVENT_KEYUP);
  EXPECT_EQ(event.modifiers, static_cast<uint32_t>(EVENTFLAG_IS_KEY_PAD));
}

}  // namespace
}  // namespace cefedition
