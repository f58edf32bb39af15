#include "devtools/view/cef_event_translation.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

using nlohmann::json;

CefMouseEvent MouseAt(int x, int y, uint32_t modifiers = 0) {
  CefMouseEvent event;
  event.x = x;
  event.y = y;
  event.modifiers = modifiers;
  return event;
}

CefKeyEvent KeyOfType(cef_key_event_type_t type, int windows_key_code, int native_key_code = 0) {
  CefKeyEvent event;
  event.type = type;
  event.windows_key_code = windows_key_code;
  event.native_key_code = native_key_code;
  return event;
}

json Params(const CefKeyEvent& event) {
  TextAssembler text;
  const auto command = TranslateKeyEvent(event, text);
  if (!command)
    return nullptr;
  EXPECT_EQ(command->method, "Input.dispatchKeyEvent");
  return command->params;
}

TEST(CefMouseEvents, ClickWithTheModifiersHeld) {
  const InputCommand click = TranslateMouseClickEvent(
      MouseAt(12, 34, EVENTFLAG_SHIFT_DOWN | EVENTFLAG_ALT_DOWN), MBT_RIGHT, false, 2);
  EXPECT_EQ(click.method, "Input.dispatchMouseEvent");
  EXPECT_EQ(click.params, json({{"type", "mousePressed"},
                                {"x", 12.0},
                                {"y", 34.0},
                                {"modifiers", 1 | 8},
                                {"button", "right"},
                                {"buttons", 2},
                                {"pointerType", "mouse"},
                                {"clickCount", 2}}));
}

TEST(CefMouseEvents, ReleaseWithoutTheButtonItself) {
  const InputCommand release = TranslateMouseClickEvent(
      MouseAt(0, 0, EVENTFLAG_MIDDLE_MOUSE_BUTTON | EVENTFLAG_LEFT_MOUSE_BUTTON), MBT_MIDDLE, true,
      1);
  EXPECT_EQ(release.params["type"], "mouseReleased");
  EXPECT_EQ(release.params["button"], "middle");
  EXPECT_EQ(release.params["buttons"], 1);
}

TEST(CefMouseEvents, CountAtLeastOneClick) {
  EXPECT_EQ(TranslateMouseClickEvent(MouseAt(0, 0), MBT_LEFT, false, 0).params["clickCount"], 1);
  EXPECT_EQ(TranslateMouseClickEvent(MouseAt(0, 0), MBT_LEFT, false, -3).params["clickCount"], 1);
}

TEST(CefMouseEvents, MoveAndDrag) {
  const json move = TranslateMouseMoveEvent(MouseAt(3, 4, EVENTFLAG_CONTROL_DOWN), false).params;
  EXPECT_EQ(move["type"], "mouseMoved");
  EXPECT_EQ(move["button"], "none");
  EXPECT_EQ(move["modifiers"], 2);
  const json drag =
      TranslateMouseMoveEvent(MouseAt(3, 4, EVENTFLAG_LEFT_MOUSE_BUTTON), false).params;
  EXPECT_EQ(drag["button"], "left");
  EXPECT_EQ(drag["buttons"], 1);
}

TEST(CefMouseEvents, LeaveByMovingOffThePage) {
  const json leave = TranslateMouseMoveEvent(MouseAt(3, 4), true).params;
  EXPECT_EQ(leave["x"], -1.0);
  EXPECT_EQ(leave["y"], -1.0);
}

TEST(CefMouseEvents, ScrollAgainstTheSignOfTheProtocol) {
  const json wheel = TranslateMouseWheelEvent(MouseAt(5, 6), 7, -40).params;
  EXPECT_EQ(wheel["type"], "mouseWheel");
  EXPECT_EQ(wheel["x"], 5.0);
  EXPECT_EQ(wheel["deltaX"], -7.0);
  EXPECT_EQ(wheel["deltaY"], 40.0);
}

TEST(CefKeyEvents, PressAndReleaseAKey) {
  CefKeyEvent event = KeyOfType(KEYEVENT_RAWKEYDOWN, 'A', 0x1E << 16);
  event.modifiers = EVENTFLAG_CONTROL_DOWN | EVENTFLAG_COMMAND_DOWN;
  const json down = Params(event);
  EXPECT_EQ(down["type"], "rawKeyDown");
  EXPECT_EQ(down["windowsVirtualKeyCode"], 'A');
  EXPECT_EQ(down["key"], "a");
  EXPECT_EQ(down["code"], "KeyA");
  EXPECT_EQ(down["modifiers"], 2 | 4);
  EXPECT_FALSE(down.contains("text"));
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_KEYDOWN, 'A'))["type"], "rawKeyDown")
      << "its text comes as an event of its own";
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_KEYUP, 'A'))["type"], "keyUp");
}

TEST(CefKeyEvents, NameTheKeyByTheHostsCharacter) {
  CefKeyEvent event = KeyOfType(KEYEVENT_RAWKEYDOWN, 0xBA);
  event.character = u'\u00fc';
  EXPECT_EQ(Params(event)["key"], "\xC3\xBC");
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_RAWKEYDOWN, 0x0D))["key"], "Enter");
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_RAWKEYDOWN, 0xE7))["key"], "Unidentified");
}

TEST(CefKeyEvents, PassTheFlagsOn) {
  CefKeyEvent event = KeyOfType(KEYEVENT_RAWKEYDOWN, 0x10);
  event.modifiers = EVENTFLAG_IS_RIGHT | EVENTFLAG_IS_REPEAT | EVENTFLAG_IS_KEY_PAD;
  event.is_system_key = 1;
  const json key = Params(event);
  EXPECT_EQ(key["location"], 2);
  EXPECT_EQ(key["autoRepeat"], true);
  EXPECT_EQ(key["isKeypad"], true);
  EXPECT_EQ(key["isSystemKey"], true);
  event.modifiers = EVENTFLAG_IS_LEFT;
  EXPECT_EQ(Params(event)["location"], 1);
}

TEST(CefKeyEvents, TypeTheCharacterFromEitherPlace) {
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_CHAR, 'x'))["text"], "x");
  CefKeyEvent event = KeyOfType(KEYEVENT_CHAR, 0);
  event.character = 'y';
  const json typed = Params(event);
  EXPECT_EQ(typed["type"], "char");
  EXPECT_EQ(typed["text"], "y");
  EXPECT_EQ(typed["windowsVirtualKeyCode"], 'y');
}

TEST(CefKeyEvents, TypeNothingForNoCharacter) {
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_CHAR, 0)), nullptr);
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_CHAR, -5)), nullptr);
  EXPECT_EQ(Params(KeyOfType(KEYEVENT_CHAR, 0x10041)), nullptr);
}

TEST(CefKeyEvents, JoinTheHalvesOfACharacter) {
  TextAssembler text;
  EXPECT_FALSE(TranslateKeyEvent(KeyOfType(KEYEVENT_CHAR, 0xD83D), text));
  const auto command = TranslateKeyEvent(KeyOfType(KEYEVENT_CHAR, 0xDE00), text);
  ASSERT_TRUE(command);
  EXPECT_EQ(command->params["text"], "\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace cefedition
