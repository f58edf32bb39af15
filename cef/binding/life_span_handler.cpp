// include/cef_life_span_handler.h over the C API.

#include "include/cef_client.h"
#include "include/cef_life_span_handler.h"

#include "binding.h"
#include "settings.h"

namespace cefbinding {

template <>
void Counterpart<CefLifeSpanHandler>::ClientClass::Bind(Struct& functions) {
  // The engine numbers popups before they exist; hosts know nothing of that number.
  functions.on_before_popup = [](Struct* self, capi::cef_browser_t* browser,
                                 capi::cef_frame_t* frame, int /*popup_id*/, auto... rest) {
    return CallEntry<&CefLifeSpanHandler::OnBeforePopup, int>(self, browser, frame, rest...);
  };
  cefbinding::Bind<&CefLifeSpanHandler::OnBeforeDevToolsPopup>(functions.on_before_dev_tools_popup);
  cefbinding::Bind<&CefLifeSpanHandler::OnAfterCreated>(functions.on_after_created);
  cefbinding::Bind<&CefLifeSpanHandler::DoClose>(functions.do_close);
  cefbinding::Bind<&CefLifeSpanHandler::OnBeforeClose>(functions.on_before_close);
}

}  // namespace cefbinding
