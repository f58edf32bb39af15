#include "devtools/renderer_message.h"

#include "base/process_message.h"
#include "devtools/browser_core.h"

namespace cefedition {

void DeliverFromRenderer(BrowserCore& core,
                         CefRefPtr<CefFrame> frame,
                         const std::string& name,
                         CefRefPtr<CefListValue> arguments) {
  if (const CefRefPtr<CefClient> client = core.client()) {
    client->OnProcessMessageReceived(core.browser(), frame, PID_RENDERER,
                                     MakeReceivedMessage(name, std::move(arguments)));
  }
}

}  // namespace cefedition
