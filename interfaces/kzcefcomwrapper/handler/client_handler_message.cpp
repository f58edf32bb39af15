// Messages from renderer processes.
#include "handler/kz_cef_client_handler.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {

bool kzCefClientHandler::OnProcessMessageReceived(CefRefPtr<CefBrowser> browser,
                                                  CefRefPtr<CefFrame> frame,
                                                  CefProcessId source_process,
                                                  CefRefPtr<CefProcessMessage> message) {
  CEF_REQUIRE_UI_THREAD();
  if (message_router_ &&
      message_router_->OnProcessMessageReceived(browser, frame, source_process, message)) {
    return true;
  }
  if (message->GetName() == "ClientRenderer.FocusedNodeChanged") {
    // There is none in a message that carries shared memory.
    if (const CefRefPtr<CefListValue> arguments = message->GetArgumentList()) {
      focus_on_editable_field_ = arguments->GetBool(0);
    }
  }
  // Deliberately false for the focus message, too: for CEF it stays unhandled.
  return false;
}

}  // namespace kzcef
