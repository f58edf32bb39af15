// Makes the engine behave as CEF 123 did under its own ("Alloy") runtime, where a switch, a
// preference or an answer at the start can.
#pragma once

#include "include/cef_app.h"

namespace cefbinding {

// What the engine must be told otherwise, or once more, when it has started.
struct AlloyOptions {
  explicit AlloyOptions(const CefSettings& settings);

  bool has_languages;
  bool keeps_session_cookies;
  bool logs;
};

// The engine's application in front of the host's, which may be null: the browser process gets the
// switches, preferences and answers that restore CEF 123's behaviour. What the host's sets itself
// wins, but for the lists of features, which are put together.
CefRefPtr<CefApp> WithAlloyBehaviour(CefRefPtr<CefApp> application, const AlloyOptions& options);

}  // namespace cefbinding
