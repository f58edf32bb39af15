// include/cef_focus_handler.h over the C API.

#include "include/cef_focus_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefFocusHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefFocusHandler::OnTakeFocus>(functions.on_take_focus);
  cefbinding::Bind<&CefFocusHandler::OnSetFocus>(functions.on_set_focus);
  cefbinding::Bind<&CefFocusHandler::OnGotFocus>(functions.on_got_focus);
}

}  // namespace cefbinding
