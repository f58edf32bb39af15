#pragma once

#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"

namespace cefedition {

class BrowserCore;

// The parts of a page that its style sheets give the CSS property "app-region". The protocol does
// not tell of them; a script in a world of its own, unseen by the page, finds them in the main
// frame and reports. Style sheets of other origins keep their rules to themselves.

/// The commands that install the script in a page, as method and parameters.
std::vector<std::pair<std::string, Json>> DraggableRegionsCommands();

/// Takes `Runtime.bindingCalled`, and tells the client when it is such a report. UI thread.
void OnDraggableRegions(BrowserCore& core, const Json& params);

}  // namespace cefedition
