#pragma once

#include <string>

#include "devtools/load_tracker.h"

namespace cefedition {

class BrowserCore;

// Navigations to URLs that no browser loads (`IsForOtherPrograms`): they are left to the programs
// of the operating system if the client lets them have it.

/// Asks the client's `OnProtocolExecution`, on the IO thread, and hands the URL to the operating
/// system when it agrees. Without a client that cares nothing is executed. UI thread.
void AskToExecute(BrowserCore& core, const NavigationRequest& navigation);

/// Takes the place of the operating system in tests; null gives it back. `url` is the browser's
/// text of it.
void ReplaceProtocolExecution(void (*execute)(const std::wstring& url));

}  // namespace cefedition
