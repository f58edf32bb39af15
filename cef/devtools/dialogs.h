#pragma once

#include <memory>

#include "devtools/protocol_connection.h"

namespace cefedition {

class BrowserCore;

// JavaScript dialogs. The page stands still until the protocol is told how a dialog ended, so every
// one of them is answered: by the client, or at once if the client does not take it on, or when the
// client lets go of the callback without having used it. UI thread.

/// `Page.javascriptDialogOpening`. Without the client's help an alert and a page that asks whether
/// it may be left are accepted, other dialogs dismissed.
void OnDialogOpening(BrowserCore& core, const Json& params);

/// `Page.javascriptDialogClosed`.
void OnDialogClosed(BrowserCore& core);

}  // namespace cefedition
