#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"

namespace cefedition {

class BrowserCore;

// "ClientRenderer.FocusedNodeChanged", which a renderer process sends when another node of its
// frame has the focus, or none has: argument 0 says whether one can write in it. A script in a
// world of its own, unseen by the page, watches in every frame and reports.

/// The commands that install the script in a page, as method and parameters.
std::vector<std::pair<std::string, Json>> FocusReportCommands();

/// Takes `Runtime.bindingCalled`, and sends the message to the client when it is such a report. UI
/// thread.
void OnFocusReport(BrowserCore& core, const Json& params);

/// Where the page's focus is.
enum class PageFocus {
  /// It has left the page: the user went beyond the last or before the first node.
  kNone,
  kElsewhere,
  /// In a node that one can write in.
  kEditable,
};

/// Asks all frames. `done` may hear late, or never when the page's script runs for ever. UI thread.
void AskForFocus(BrowserCore& core, std::function<void(PageFocus focus)> done);

}  // namespace cefedition
