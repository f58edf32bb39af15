// include/cef_keyboard_handler.h over the C API.

#include "include/cef_keyboard_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefKeyboardHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefKeyboardHandler::OnPreKeyEvent>(functions.on_pre_key_event);
  cefbinding::Bind<&CefKeyboardHandler::OnKeyEvent>(functions.on_key_event);
}

}  // namespace cefbinding
