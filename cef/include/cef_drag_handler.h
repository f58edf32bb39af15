// include/cef_drag_handler.h of CEF 123, as far as it is used here:
// callbacks about drags and draggable regions.
#pragma once

#include "include/cef_base.h"
#include "include/cef_browser.h"
#include "include/cef_drag_data.h"
#include "include/cef_frame.h"

// Drags entering the view and draggable regions, on the UI thread.
class CefDragHandler : public virtual CefBaseRefCounted {
 public:
  typedef cef_drag_operations_mask_t DragOperationsMask;

  virtual bool OnDragEnter(CefRefPtr<CefBrowser> /*browser*/,
                           CefRefPtr<CefDragData> /*dragData*/,
                           DragOperationsMask /*mask*/) {
    return false;
  }
  virtual void OnDraggableRegionsChanged(CefRefPtr<CefBrowser> /*browser*/,
                                         CefRefPtr<CefFrame> /*frame*/,
                                         const std::vector<CefDraggableRegion>& /*regions*/) {}
};
