#include "devtools/view/input_translation.h"

#include <gtest/gtest.h>

#include <limits>

#include "devtools/view/window_message_numbers.h"

namespace cefedition {
namespace {

using nlohmann::json;

constexpr int64_t Point(int x, int y) {
  return static_cast<int64_t>((static_cast<uint32_t>(y) & 0xFFFFU) << 16U |
                              (static_cast<uint32_t>(x) & 0xFFFFU));
}

constexpr uint64_t Wheel(int delta, uint64_t keys = 0) {
  return (static_cast<uint64_t>(static_cast<uint16_t>(delta)) << 16U) | keys;
}

constexpr int64_t KeyBits(int scan_code, bool extended = false, bool was_down = false) {
  return 1 | (static_cast<int64_t>(scan_code) << 16) | (extended ? int64_t{1} << 24 : 0) |
         (was_down ? int64_t{1} << 30 : 0);
}

// A mouse message's parameters, or null when there is no command.
json Mouse(const WindowMessage& message, const MouseContext& context, ClickCounter& clicks) {
  const auto command = TranslateMouseMessage(message, context, clicks);
  if (!command)
    return nullptr;
  EXPECT_EQ(command->method, "Input.dispatchMouseEvent");
  return command->params;
}

json Mouse(const WindowMessage& message, const MouseContext& context = {}) {
  ClickCounter clicks;
  return Mouse(message, context, clicks);
}

json Key(const WindowMessage& message, const KeyContext& context = {}) {
  TextAssembler text;
  const auto command = TranslateKeyMessage(message, context, text);
  if (!command)
    return nullptr;
  EXPECT_EQ(command->method, "Input.dispatchKeyEvent");
  return command->params;
}

TEST(MouseTranslation, MovesWithTheButtonsAndKeysHeld) {
  // Left button, right button and Control.
  EXPECT_EQ(Mouse({kWmMouseMove, 0x01 | 0x02 | 0x08, Point(30, 40)}),
            json({{"type", "mouseMoved"},
                  {"x", 30.0},
                  {"y", 40.0},
                  {"modifiers", 2},
                  {"button", "left"},
                  {"buttons", 3},
                  {"pointerType", "mouse"}}));
  EXPECT_EQ(Mouse({kWmMouseMove, 0, Point(0, 0)})["button"], "none");
  EXPECT_EQ(Mouse({kWmMouseMove, 0x10, Point(0, 0)})["button"], "middle");
}

TEST(MouseTranslation, GivesPositionsInCssPixels) {
  const json move = Mouse({kWmMouseMove, 0, Point(30, 45)}, {.scale = 1.5});
  EXPECT_EQ(move["x"], 20.0);
  EXPECT_EQ(move["y"], 30.0);
}

TEST(MouseTranslation, KeepsNegativePositionsOfACapturedMouse) {
  const json move = Mouse({kWmMouseMove, 0x01, Point(-5, -7)});
  EXPECT_EQ(move["x"], -5.0);
  EXPECT_EQ(move["y"], -7.0);
}

TEST(MouseTranslation, TakesAnImpossibleScaleForOne) {
  for (const double scale : {0.0, -2.0, std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(Mouse({kWmMouseMove, 0, Point(30, 45)}, {.scale = scale})["x"], 30.0);
  }
}

TEST(MouseTranslation, TakesAltAndMetaFromTheKeyboard) {
  EXPECT_EQ(Mouse({kWmMouseMove, 0x04, 0}, {.keys = {.alt = true, .meta = true}})["modifiers"],
            1 | 4 | 8);
  // Shift and Control are the message's: the keyboard may have moved on since.
  EXPECT_EQ(Mouse({kWmMouseMove, 0, 0}, {.keys = {.shift = true, .control = true}})["modifiers"],
            0);
}

struct ButtonCase {
  uint32_t message;
  uint64_t wparam;
  const char* type;
  const char* button;
  int buttons;
};

class MouseButtons : public testing::TestWithParam<ButtonCase> {};

TEST_P(MouseButtons, AreNamed) {
  const ButtonCase& row = GetParam();
  const json params = Mouse({row.message, row.wparam, Point(1, 2)});
  EXPECT_EQ(params["type"], row.type);
  EXPECT_EQ(params["button"], row.button);
  EXPECT_EQ(params["buttons"], row.buttons);
  EXPECT_EQ(params["clickCount"], 1);
}

INSTANTIATE_TEST_SUITE_P(
    All,
    MouseButtons,
    testing::Values(ButtonCase{kWmLButtonDown, 0x01, "mousePressed", "left", 1},
                    ButtonCase{kWmLButtonUp, 0x00, "mouseReleased", "left", 0},
                    ButtonCase{kWmRButtonDown, 0x02, "mousePressed", "right", 2},
                    ButtonCase{kWmRButtonUp, 0x01, "mouseReleased", "right", 1},
                    ButtonCase{kWmMButtonDown, 0x10, "mousePressed", "middle", 4},
                    ButtonCase{kWmMButtonUp, 0x00, "mouseReleased", "middle", 0},
                    ButtonCase{kWmXButtonDown, 0x10020, "mousePressed", "back", 8},
                    ButtonCase{kWmXButtonUp, 0x10000, "mouseReleased", "back", 0},
                    ButtonCase{kWmXButtonDown, 0x20040, "mousePressed", "forward", 16},
                    ButtonCase{kWmXButtonUp, 0x20000, "mouseReleased", "forward", 0}));

TEST(MouseTranslation, IgnoresAnUnknownExtraButton) {
  EXPECT_EQ(Mouse({kWmXButtonDown, 0x30000, 0}), nullptr);
  EXPECT_EQ(Mouse({kWmXButtonDown, 0, 0}), nullptr);
}

TEST(MouseTranslation, CountsADoubleAndATripleClick) {
  ClickCounter clicks;
  const auto press = [&](uint32_t time) {
    return Mouse({kWmLButtonDown, 0x01, Point(10, 10)}, {.time_ms = time}, clicks)["clickCount"];
  };
  EXPECT_EQ(press(1000), 1);
  EXPECT_EQ(Mouse({kWmLButtonUp, 0, Point(10, 10)}, {}, clicks)["clickCount"], 1);
  EXPECT_EQ(press(1300), 2);
  EXPECT_EQ(Mouse({kWmLButtonUp, 0, Point(10, 10)}, {}, clicks)["clickCount"], 2)
      << "a release carries the count of its press";
  EXPECT_EQ(press(1600), 3);
  EXPECT_EQ(press(2101), 1) << "too late to go on";
}

TEST(MouseTranslation, BelievesADoubleClickMessage) {
  EXPECT_EQ(Mouse({kWmLButtonDblClk, 0x01, 0})["clickCount"], 2);
  EXPECT_EQ(Mouse({kWmLButtonDblClk, 0x01, 0})["type"], "mousePressed");
}

TEST(MouseTranslation, ScrollsByAHundredPixelsANotchFromAScreenPosition) {
  const json wheel =
      Mouse({kWmMouseWheel, Wheel(120), Point(130, 240)}, {.origin_x = 100, .origin_y = 200});
  EXPECT_EQ(wheel["type"], "mouseWheel");
  EXPECT_EQ(wheel["x"], 30.0);
  EXPECT_EQ(wheel["y"], 40.0);
  EXPECT_EQ(wheel["deltaX"], 0.0);
  EXPECT_EQ(wheel["deltaY"], -100.0) << "away from the user is up";
  EXPECT_EQ(wheel["button"], "none");
  EXPECT_FALSE(wheel.contains("clickCount"));
}

TEST(MouseTranslation, ScrollsByParts) {
  EXPECT_EQ(Mouse({kWmMouseWheel, Wheel(-30), 0})["deltaY"], 25.0);
}

TEST(MouseTranslation, ScrollsSidewaysByTheSecondWheelOrWithShift) {
  const json second = Mouse({kWmMouseHWheel, Wheel(120), 0});
  EXPECT_EQ(second["deltaX"], 100.0);
  EXPECT_EQ(second["deltaY"], 0.0);
  const json shifted = Mouse({kWmMouseWheel, Wheel(120, 0x04), 0});
  EXPECT_EQ(shifted["deltaX"], -100.0);
  EXPECT_EQ(shifted["deltaY"], 0.0);
}

TEST(MouseTranslation, TakesTheWheelOnAScreenLeftOfTheFirst) {
  const json wheel = Mouse({kWmMouseWheel, Wheel(120), Point(-1900, 10)}, {.origin_x = -1920});
  EXPECT_EQ(wheel["x"], 20.0);
}

TEST(MouseTranslation, LeavesByMovingOffThePage) {
  const json leave = Mouse({kWmMouseLeave, 0, 0});
  EXPECT_EQ(leave["type"], "mouseMoved");
  EXPECT_EQ(leave["x"], -1.0);
  EXPECT_EQ(leave["y"], -1.0);
}

TEST(MouseTranslation, LeavesOtherMessagesAlone) {
  EXPECT_EQ(Mouse({0x000F, 0, 0}), nullptr);
  EXPECT_EQ(Mouse({kWmKeyDown, 'A', 0}), nullptr);
}

TEST(ClickCounter, StartsAgainWithAnotherButtonPlaceOrTime) {
  const ClickCounter::Limits limits{.time_ms = 500, .distance_x = 2, .distance_y = 3};
  ClickCounter clicks;
  EXPECT_EQ(clicks.Press(MouseButton::kLeft, 0, 0, 0, limits), 1);
  EXPECT_EQ(clicks.Press(MouseButton::kLeft, 2, 3, 500, limits), 2) << "just within the limits";
  EXPECT_EQ(clicks.Press(MouseButton::kLeft, 5, 3, 600, limits), 1) << "too far to the side";
  EXPECT_EQ(clicks.Press(MouseButton::kLeft, 5, 7, 700, limits), 1) << "too far down";
  EXPECT_EQ(clicks.Press(MouseButton::kRight, 5, 7, 800, limits), 1) << "another button";
  EXPECT_EQ(clicks.Press(MouseButton::kRight, 5, 7, 1301, limits), 1) << "too late";
}

TEST(ClickCounter, GoesOnWhenTheClockWrapsAround) {
  ClickCounter clicks;
  EXPECT_EQ(clicks.Press(MouseButton::kLeft, 0, 0, 0xFFFFFFF0, {}), 1);
  EXPECT_EQ(clicks.Press(MouseButton::kLeft, 0, 0, 0x10, {}), 2);
}

TEST(ClickCounter, TakesAReleaseWithoutAPressForASingleClick) {
  ClickCounter clicks;
  EXPECT_EQ(clicks.Release(MouseButton::kLeft), 1);
  clicks.Press(MouseButton::kLeft, 0, 0, 0, {}, 2);
  EXPECT_EQ(clicks.Release(MouseButton::kRight), 1);
  EXPECT_EQ(clicks.Release(MouseButton::kLeft), 2);
}

TEST(KeyTranslation, SendsAKeyWithoutItsText) {
  EXPECT_EQ(Key({kWmKeyDown, 'Q', KeyBits(0x10)}, {.keys = {.shift = true}}),
            json({{"type", "rawKeyDown"},
                  {"modifiers", 8},
                  {"windowsVirtualKeyCode", 'Q'},
                  {"nativeVirtualKeyCode", 'Q'},
                  {"autoRepeat", false},
                  {"isKeypad", false},
                  {"isSystemKey", false},
                  {"location", 0},
                  {"key", "Q"},
                  {"code", "KeyQ"}}));
  EXPECT_EQ(Key({kWmKeyUp, 'Q', KeyBits(0x10, false, true)})["type"], "keyUp");
}

TEST(KeyTranslation, NamesAKeyByTheUsersKeyboard) {
  const json key = Key({kWmKeyDown, 0xBA, KeyBits(0x1A)}, {.keys = {}, .layout_text = "\xC3\xBC"});
  EXPECT_EQ(key["key"], "\xC3\xBC");
  EXPECT_EQ(key["code"], "BracketLeft");
}

TEST(KeyTranslation, NamesADeadKey) {
  EXPECT_EQ(Key({kWmKeyDown, 0xDD, KeyBits(0x0D)},
                {.keys = {}, .layout_text = "\xC2\xB4", .dead_key = true})["key"],
            "Dead");
}

TEST(KeyTranslation, NamesAControlKeyWhateverTheLayoutSays) {
  EXPECT_EQ(Key({kWmKeyDown, 0x0D, KeyBits(0x1C)}, {.keys = {}, .layout_text = "x"})["key"],
            "Enter");
}

TEST(KeyTranslation, SaysSoWhenAKeyIsUnknown) {
  const json key = Key({kWmKeyDown, 0xE7, 0});
  EXPECT_EQ(key["key"], "Unidentified");
  EXPECT_FALSE(key.contains("code"));
}

TEST(KeyTranslation, MarksRepeatsOfAKeyHeldDownOnly) {
  EXPECT_EQ(Key({kWmKeyDown, 'A', KeyBits(0x1E, false, true)})["autoRepeat"], true);
  EXPECT_EQ(Key({kWmKeyUp, 'A', KeyBits(0x1E, false, true)})["autoRepeat"], false)
      << "every release says that the key was down before";
}

TEST(KeyTranslation, MarksSystemKeys) {
  const json down = Key({kWmSysKeyDown, 0x73, KeyBits(0x3E)}, {.keys = {.alt = true}});
  EXPECT_EQ(down["type"], "rawKeyDown");
  EXPECT_EQ(down["isSystemKey"], true);
  EXPECT_EQ(down["modifiers"], 1);
  EXPECT_EQ(down["key"], "F4");
  EXPECT_EQ(Key({kWmSysKeyUp, 0x73, KeyBits(0x3E)})["type"], "keyUp");
}

TEST(KeyTranslation, TellsTheKeypadAndTheRightHandKeys) {
  EXPECT_EQ(Key({kWmKeyDown, 0x61, KeyBits(0x4F)})["isKeypad"], true);
  EXPECT_EQ(Key({kWmKeyDown, 0x11, KeyBits(0x1D, true)})["location"], 2);
}

TEST(KeyTranslation, TypesACharacter) {
  const json typed = Key({kWmChar, u'\u00e9', KeyBits(0x03)});
  EXPECT_EQ(typed["type"], "char");
  EXPECT_EQ(typed["text"], "\xC3\xA9");
  EXPECT_EQ(typed["unmodifiedText"], "\xC3\xA9");
  EXPECT_EQ(typed["key"], "\xC3\xA9");
  EXPECT_EQ(typed["windowsVirtualKeyCode"], 0xE9);
  EXPECT_EQ(typed["code"], "Digit2");
}

TEST(KeyTranslation, TypesEnterAsACarriageReturn) {
  EXPECT_EQ(Key({kWmChar, '\r', KeyBits(0x1C)})["text"], "\r");
}

TEST(KeyTranslation, TakesACharacterForNoKeyNumber) {
  // '!' has the number of Page Up, '\'' that of the right arrow.
  EXPECT_FALSE(Key({kWmChar, '!', 0}).contains("code"));
  EXPECT_EQ(Key({kWmChar, '\'', 0})["key"], "'");
}

TEST(KeyTranslation, TypesACharacterOfTwoMessagesOnce) {
  TextAssembler text;
  EXPECT_FALSE(TranslateKeyMessage({kWmChar, 0xD83D, 0}, {}, text));
  const auto command = TranslateKeyMessage({kWmChar, 0xDE00, 0}, {}, text);
  ASSERT_TRUE(command);
  EXPECT_EQ(command->params["text"], "\xF0\x9F\x98\x80");
}

TEST(KeyTranslation, TakesAltGrForNoShortcut) {
  const KeyContext alt_gr{.keys = {.shift = true, .control = true, .alt = true}, .layout_text = {}};
  EXPECT_EQ(Key({kWmChar, '@', KeyBits(0x10)}, alt_gr)["modifiers"], 8);
  EXPECT_EQ(Key({kWmChar, 0x11, KeyBits(0x10)}, alt_gr)["modifiers"], 1 | 2 | 8)
      << "a control character comes of a shortcut";
}

TEST(KeyTranslation, DropsTheCharacterZero) {
  EXPECT_EQ(Key({kWmChar, 0, 0}), nullptr);
}

TEST(KeyTranslation, InsertsTextThatNoKeyTyped) {
  TextAssembler text;
  const auto unicode = TranslateKeyMessage({kWmUniChar, 0x1F600, 0}, {}, text);
  ASSERT_TRUE(unicode);
  EXPECT_EQ(unicode->method, "Input.insertText");
  EXPECT_EQ(unicode->params, json({{"text", "\xF0\x9F\x98\x80"}}));
  const auto composed = TranslateKeyMessage({kWmImeChar, 0x6F22, 0}, {}, text);
  ASSERT_TRUE(composed);
  EXPECT_EQ(composed->params, json({{"text", "\xE6\xBC\xA2"}}));
}

TEST(KeyTranslation, InsertsNothingForAQuestionOrForNoText) {
  EXPECT_EQ(Key({kWmUniChar, 0xFFFF, 0}), nullptr) << "the question whether WM_UNICHAR is known";
  EXPECT_EQ(Key({kWmUniChar, 0x110000, 0}), nullptr);
  EXPECT_EQ(Key({kWmUniChar, uint64_t{0x100000041}, 0}), nullptr);
  EXPECT_EQ(Key({kWmUniChar, 0x08, 0}), nullptr);
  EXPECT_EQ(Key({kWmImeChar, 0, 0}), nullptr);
  EXPECT_EQ(Key({kWmImeChar, 0xD83D, 0}), nullptr);
}

TEST(KeyTranslation, LeavesOtherMessagesAlone) {
  EXPECT_EQ(Key({0x0106, 'a', 0}), nullptr) << "WM_SYSCHAR: Alt with a letter types nothing";
  EXPECT_EQ(Key({0x0103, 0xB4, 0}), nullptr) << "WM_DEADCHAR: the accent comes with its letter";
  EXPECT_EQ(Key({kWmMouseMove, 0, 0}), nullptr);
}

}  // namespace
}  // namespace cefedition
