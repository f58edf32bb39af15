// include/cef_life_span_handler.h over the C API.

#include "include/cef_client.h"
#include "include/cef_life_span_handler.h"

#include "binding.h"
#include "forced_closes.h"
#include "js_dialog_handler.h"
#include "settings.h"

namespace cefbinding {

template <>
void Counterpart<CefLifeSpanHandler>::ClientClass::Bind(Struct& functions) {
  // The engine numbers popups before they exist; hosts know nothing of that number.
  functions.on_before_popup = [](Struct* self, capi::cef_browser_t* browser,
                                 capi::cef_frame_t* frame, int /*popup_id*/, auto... rest) {
    return CallEntry<&CefLifeSpanHandler::OnBeforePopup, int>(self, browser, frame, rest...);
  };
  // OnBeforeDevToolsPopup is left out: CEF 123 called it for Chrome's windows only.
  cefbinding::Bind<&CefLifeSpanHandler::OnAfterCreated>(functions.on_after_created);
  cefbinding::Bind<&CefLifeSpanHandler::DoClose>(functions.do_close);
  functions.on_before_close = [](Struct* self, capi::cef_browser_t* structure) {
    const auto browser = Rewrap<CefBrowser>(structure);
    Contain([&] { ClientObject<CefLifeSpanHandler>::ObjectOf(self)->OnBeforeClose(browser); });
    // The engine says nothing of a dialog that its browser takes along.
    DismissDialogOf(browser->GetIdentifier());
    ForgetForcedClose(browser->GetIdentifier());
  };
}

}  // namespace cefbinding
