#pragma once

#include <memory>

#include "include/cef_browser.h"

namespace cefedition {

class BrowserCore;

/// Shows the history, oldest entry first, to the visitor on the UI thread.
void VisitNavigationEntries(std::shared_ptr<BrowserCore> core,
                            CefRefPtr<CefNavigationEntryVisitor> visitor,
                            bool current_only);

/// The entry of what is shown now, as far as it is known without asking. UI thread.
CefRefPtr<CefNavigationEntry> VisibleNavigationEntry(BrowserCore& core);

}  // namespace cefedition
