// include/cef_devtools_message_observer.h over the C API.

#include "include/cef_browser.h"
#include "include/cef_devtools_message_observer.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefDevToolsMessageObserver>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDevToolsMessageObserver::OnDevToolsMessage>(functions.on_dev_tools_message);
  cefbinding::Bind<&CefDevToolsMessageObserver::OnDevToolsMethodResult>(
      functions.on_dev_tools_method_result);
  cefbinding::Bind<&CefDevToolsMessageObserver::OnDevToolsEvent>(functions.on_dev_tools_event);
  cefbinding::Bind<&CefDevToolsMessageObserver::OnDevToolsAgentAttached>(
      functions.on_dev_tools_agent_attached);
  cefbinding::Bind<&CefDevToolsMessageObserver::OnDevToolsAgentDetached>(
      functions.on_dev_tools_agent_detached);
}

}  // namespace cefbinding
