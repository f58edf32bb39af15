#include "devtools/view/key_names.h"

#include <gtest/gtest.h>

namespace cefedition {
namespace {

TEST(KeyNames, NamesAKeyByItsPlaceWhateverItTypes) {
  // The key right of Tab types "a" in France; its place keeps its name.
  EXPECT_EQ(CodeOf({'A', 0x10, false}), "KeyQ");
  EXPECT_EQ(CodeOf({0x0D, 0x1C, false}), "Enter");
  EXPECT_EQ(CodeOf({0x0D, 0x1C, true}), "NumpadEnter");
  EXPECT_EQ(CodeOf({0x24, 0x47, true}), "Home");
  EXPECT_EQ(CodeOf({0x24, 0x47, false}), "Numpad7");
}

TEST(KeyNames, TakesThePlaceOnAUsKeyboardWithoutAScanCode) {
  EXPECT_EQ(CodeOf({'A', 0, false}), "KeyA");
  EXPECT_EQ(CodeOf({0x25, 0, false}), "ArrowLeft");
  EXPECT_EQ(CodeOf({0x60, 0, false}), "Numpad0");
  EXPECT_EQ(CodeOf({0x10, 0, false}), "ShiftLeft");
  EXPECT_EQ(CodeOf({0x7B, 0, false}), "F12");
}

TEST(KeyNames, LeavesAnUnknownPlaceEmpty) {
  EXPECT_EQ(CodeOf({0, 0, false}), "");
  EXPECT_EQ(CodeOf({'A', 0xFF, true}), "");
  EXPECT_EQ(CodeOf({-1, 0, false}), "");
}

TEST(KeyNames, NamesKeysThatTypeNothing) {
  EXPECT_EQ(NameOfKey(0x0D), "Enter");
  EXPECT_EQ(NameOfKey(0x26), "ArrowUp");
  EXPECT_EQ(NameOfKey(0x70), "F1");
  EXPECT_EQ(NameOfKey(0x87), "F24");
  EXPECT_EQ(NameOfKey(0xE5), "Process");
  EXPECT_EQ(NameOfKey('A'), "");
  EXPECT_EQ(NameOfKey(0x20), "") << "the space bar types a space";
}

TEST(KeyNames, TypesAsAUsKeyboard) {
  EXPECT_EQ(UsKeyboardText('A', false), "a");
  EXPECT_EQ(UsKeyboardText('A', true), "A");
  EXPECT_EQ(UsKeyboardText('2', true), "@");
  EXPECT_EQ(UsKeyboardText(0xBF, false), "/");
  EXPECT_EQ(UsKeyboardText(0xBF, true), "?");
  EXPECT_EQ(UsKeyboardText(0x69, true), "9");
  EXPECT_EQ(UsKeyboardText(0x20, false), " ");
  EXPECT_EQ(UsKeyboardText(0x0D, false), "");
}

TEST(KeyNames, TellsTheKeypadFromItsDoubles) {
  EXPECT_TRUE(IsKeypadKey({0x61, 0x4F, false}));
  EXPECT_TRUE(IsKeypadKey({0x6F, 0x35, true})) << "the keypad's slash is an extended key";
  EXPECT_TRUE(IsKeypadKey({0x0D, 0x1C, true}));
  EXPECT_FALSE(IsKeypadKey({0x0D, 0x1C, false}));
  EXPECT_TRUE(IsKeypadKey({0x24, 0x47, false})) << "Home by the keypad, NumLock off";
  EXPECT_FALSE(IsKeypadKey({0x24, 0x47, true}));
  EXPECT_FALSE(IsKeypadKey({0x24, 0, false})) << "a message that a program made up";
  EXPECT_FALSE(IsKeypadKey({'7', 0x08, false}));
}

TEST(KeyNames, TellsLeftFromRight) {
  EXPECT_EQ(LocationOf({0x10, 0x2A, false}), 1);
  EXPECT_EQ(LocationOf({0x10, 0x36, false}), 2);
  EXPECT_EQ(LocationOf({0x11, 0x1D, false}), 1);
  EXPECT_EQ(LocationOf({0x11, 0x1D, true}), 2);
  EXPECT_EQ(LocationOf({0x12, 0x38, true}), 2);
  EXPECT_EQ(LocationOf({0x5B, 0x5B, true}), 1);
  EXPECT_EQ(LocationOf({0x5C, 0x5C, true}), 2);
  EXPECT_EQ(LocationOf({0xA1, 0, false}), 2);
  EXPECT_EQ(LocationOf({'A', 0x1E, false}), 0);
}

}  // namespace
}  // namespace cefedition
