#include "devtools/view/input_command.h"

namespace cefedition {
namespace {

const char* TypeName(MouseAction action) {
  switch (action) {
    case MouseAction::kPress:
      return "mousePressed";
    case MouseAction::kRelease:
      return "mouseReleased";
    case MouseAction::kWheel:
      return "mouseWheel";
    case MouseAction::kMove:
      break;
  }
  return "mouseMoved";
}

const char* ButtonName(MouseButton button) {
  switch (button) {
    case MouseButton::kLeft:
      return "left";
    case MouseButton::kRight:
      return "right";
    case MouseButton::kMiddle:
      return "middle";
    case MouseButton::kBack:
      return "back";
    case MouseButton::kForward:
      return "forward";
    case MouseButton::kNone:
      break;
  }
  return "none";
}

const char* TypeName(KeyAction action) {
  switch (action) {
    case KeyAction::kUp:
      return "keyUp";
    case KeyAction::kChar:
      return "char";
    case KeyAction::kDown:
      break;
  }
  // "keyDown" would have the browser type the text itself; the text comes as a "char" of its own.
  return "rawKeyDown";
}

}  // namespace

InputCommand MakeMouseCommand(const MouseInput& input) {
  InputCommand command{"Input.dispatchMouseEvent",
                       {{"type", TypeName(input.action)},
                        {"x", input.x},
                        {"y", input.y},
                        {"modifiers", input.modifiers},
                        {"button", ButtonName(input.button)},
                        {"buttons", input.buttons},
                        {"pointerType", "mouse"}}};
  if (input.action == MouseAction::kWheel) {
    command.params["deltaX"] = input.delta_x;
    command.params["deltaY"] = input.delta_y;
  }
  if (input.action == MouseAction::kPress || input.action == MouseAction::kRelease)
    command.params["clickCount"] = input.click_count;
  return command;
}

InputCommand MakeKeyCommand(const KeyInput& input) {
  InputCommand command{"Input.dispatchKeyEvent",
                       {{"type", TypeName(input.action)},
                        {"modifiers", input.modifiers},
                        {"windowsVirtualKeyCode", input.virtual_key},
                        {"nativeVirtualKeyCode", input.virtual_key},
                        {"autoRepeat", input.auto_repeat},
                        {"isKeypad", input.keypad},
                        {"isSystemKey", input.system_key},
                        {"location", input.location}}};
  if (!input.key.empty())
    command.params["key"] = input.key;
  if (!input.code.empty())
    command.params["code"] = input.code;
  if (input.action == KeyAction::kChar) {
    command.params["text"] = input.text;
    command.params["unmodifiedText"] = input.text;
  }
  return command;
}

InputCommand MakeInsertTextCommand(const std::string& text) {
  return {"Input.insertText", {{"text", text}}};
}

}  // namespace cefedition
