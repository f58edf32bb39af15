#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devtools/protocol_connection.h"

namespace cefedition {

// The protocol has no events for a document's title, icons and full-screen element. A script in a
// world of its own, unseen by the page, watches for them in the main frame and reports.

/// What the script reported.
struct PageReport {
  enum class Kind { kTitle, kIcons, kFullscreen };
  Kind kind = Kind::kTitle;
  /// `kTitle`: the title, empty when the document has none.
  std::string title;
  /// `kIcons`: absolute URLs.
  std::vector<std::string> icons;
  /// `kFullscreen`.
  bool fullscreen = false;
};

/// The commands that install the script in a page, as method and parameters.
std::vector<std::pair<std::string, Json>> PageReportCommands();

/// Reads `Runtime.bindingCalled`; nothing for another binding or a text that is no report.
std::optional<PageReport> ParsePageReport(const Json& params);

/// The title that stands for a document without one: its URL as an address bar would show it.
std::string TitleFromUrl(const std::string& url);

}  // namespace cefedition
