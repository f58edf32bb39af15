// Window messages, which any program may post to a view with any numbers in them.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <optional>
#include <string>

#include "devtools/view/input_translation.h"
#include "devtools/view/window_message_numbers.h"
#include "require.h"

using cefedition::InputCommand;
using kzfuzz::Require;

namespace {

constexpr std::array kMessages = {
    cefedition::kWmKeyDown,     cefedition::kWmKeyUp,         cefedition::kWmChar,
    cefedition::kWmSysKeyDown,  cefedition::kWmSysKeyUp,      cefedition::kWmUniChar,
    cefedition::kWmImeChar,     cefedition::kWmMouseMove,     cefedition::kWmLButtonDown,
    cefedition::kWmLButtonUp,   cefedition::kWmLButtonDblClk, cefedition::kWmRButtonDown,
    cefedition::kWmRButtonUp,   cefedition::kWmRButtonDblClk, cefedition::kWmMButtonDown,
    cefedition::kWmMButtonUp,   cefedition::kWmMButtonDblClk, cefedition::kWmXButtonDown,
    cefedition::kWmXButtonUp,   cefedition::kWmXButtonDblClk, cefedition::kWmMouseWheel,
    cefedition::kWmMouseHWheel, cefedition::kWmMouseLeave,
};

cefedition::HeldKeys ConsumeKeys(FuzzedDataProvider& data) {
  return {.shift = data.ConsumeBool(),
          .control = data.ConsumeBool(),
          .alt = data.ConsumeBool(),
          .meta = data.ConsumeBool()};
}

cefedition::WindowMessage ConsumeMessage(FuzzedDataProvider& data) {
  return {.message = data.ConsumeBool() ? data.PickValueInArray(kMessages)
                                        : data.ConsumeIntegral<uint32_t>(),
          .wparam = data.ConsumeIntegral<uint64_t>(),
          .lparam = data.ConsumeIntegral<int64_t>()};
}

void RequireSendable(const InputCommand& command) {
  // Throws on a text that is not UTF-8, and writes a number that is none as null.
  const std::string sent = command.params.dump();
  Require(sent.find("null") == std::string::npos || command.method == "Input.insertText" ||
              command.params.contains("text"),
          "every number is one");
  const auto& params = command.params;
  if (command.method == "Input.insertText") {
    Require(!params.at("text").get<std::string>().empty(), "an inserted text is not empty");
    return;
  }
  const auto modifiers = params.at("modifiers").get<int>();
  Require(modifiers >= 0 && modifiers <= 15, "modifiers are four bits");
  if (command.method == "Input.dispatchKeyEvent") {
    const auto type = params.at("type").get<std::string>();
    Require(type == "rawKeyDown" || type == "keyUp" || type == "char", "a key event's type");
    Require((type == "char") == params.contains("text"), "only characters carry text");
    Require(!params.at("key").get<std::string>().empty(), "every key has a name");
    return;
  }
  Require(command.method == "Input.dispatchMouseEvent", "no other command comes out");
  const auto buttons = params.at("buttons").get<int>();
  Require(buttons >= 0 && buttons <= 31, "buttons are five bits");
  if (params.contains("clickCount"))
    Require(params.at("clickCount").get<int>() >= 1, "a press is a click");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  cefedition::ClickCounter clicks;
  cefedition::TextAssembler text;
  while (data.remaining_bytes() > 0) {
    const cefedition::WindowMessage message = ConsumeMessage(data);
    const cefedition::MouseContext mouse{
        .keys = ConsumeKeys(data),
        .scale = data.ConsumeBool() ? 1.0 : data.ConsumeFloatingPointInRange<double>(-1, 8),
        .origin_x = data.ConsumeIntegral<int>(),
        .origin_y = data.ConsumeIntegral<int>(),
        .time_ms = data.ConsumeIntegral<uint32_t>()};
    const cefedition::KeyContext keys{.keys = mouse.keys, .dead_key = data.ConsumeBool()};
    const auto mouse_command = cefedition::TranslateMouseMessage(message, mouse, clicks);
    const auto key_command = cefedition::TranslateKeyMessage(message, keys, text);
    Require(!mouse_command || !key_command, "a message is of the mouse or of the keyboard");
    if (mouse_command)
      RequireSendable(*mouse_command);
    if (key_command)
      RequireSendable(*key_command);
  }
  return 0;
}
