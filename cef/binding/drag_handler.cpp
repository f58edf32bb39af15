// include/cef_drag_handler.h over the C API.

#include "include/cef_drag_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefDragHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDragHandler::OnDragEnter>(functions.on_drag_enter);
  functions.on_draggable_regions_changed = [](Struct* self, capi::cef_browser_t* browser,
                                              capi::cef_frame_t* frame, uint64_t count,
                                              cef_draggable_region_t* regions) {
    Contain([&] {
      ClientObject<CefDragHandler>::ObjectOf(self)->OnDraggableRegionsChanged(
          Rewrap<CefBrowser>(browser), Rewrap<CefFrame>(frame),
          std::vector<CefDraggableRegion>(regions, regions + count));
    });
  };
}

}  // namespace cefbinding
