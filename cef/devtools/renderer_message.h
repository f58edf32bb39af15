#pragma once

#include <string>

#include "include/cef_frame.h"
#include "include/cef_values.h"

namespace cefedition {

class BrowserCore;

/// Gives the client a message as from the renderer process of `frame`. UI thread.
void DeliverFromRenderer(BrowserCore& core,
                         CefRefPtr<CefFrame> frame,
                         const std::string& name,
                         CefRefPtr<CefListValue> arguments);

}  // namespace cefedition
