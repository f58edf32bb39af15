// include/cef_load_handler.h over the C API.

#include "include/cef_load_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefLoadHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefLoadHandler::OnLoadingStateChange>(functions.on_loading_state_change);
  cefbinding::Bind<&CefLoadHandler::OnLoadStart>(functions.on_load_start);
  cefbinding::Bind<&CefLoadHandler::OnLoadEnd>(functions.on_load_end);
  cefbinding::Bind<&CefLoadHandler::OnLoadError>(functions.on_load_error);
}

}  // namespace cefbinding
