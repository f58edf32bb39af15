#pragma once

#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"
#include "include/cef_context_menu_handler.h"

namespace cefedition {

// The protocol does not say that a page was clicked for its menu, nor what lies there. A script in
// a world of its own, unseen by the page, waits in every frame for the event of the menu, looks
// whether the page wants none, and reports.

/// What the script reported: the page's own words, not yet checked against anything.
struct ContextMenuReport {
  /// The script context that it comes from, by the protocol's number.
  int context = 0;
  /// Where the menu is wanted: CSS pixels of the page's view.
  double x = 0;
  double y = 0;
  Json details;
};

/// The commands that install the script in a page, as method and parameters.
std::vector<std::pair<std::string, Json>> ContextMenuReportCommands();

/// Reads `Runtime.bindingCalled`; false for another binding or a text that is no report.
bool ParseContextMenuReport(const Json& params, ContextMenuReport& report);

/// `view_x` and `view_y` are in the view's pixels at 96 DPI. `frame_url` is empty for the main
/// frame.
CefRefPtr<CefContextMenuParams> MakeContextMenuParams(const ContextMenuReport& report,
                                                      int view_x,
                                                      int view_y,
                                                      const std::string& page_url,
                                                      const std::string& frame_url);

/// Fills `model` as CEF does for what was clicked. Commands that cannot be carried out now are
/// disabled.
void FillDefaultMenu(CefMenuModel& model,
                     CefContextMenuParams& params,
                     bool can_go_back,
                     bool can_go_forward);

}  // namespace cefedition
