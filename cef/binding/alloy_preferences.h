// What CEF 123 did by itself, and the engine does only with the right preferences.
#pragma once

#include "alloy.h"

namespace cefbinding {

// Sets the preferences of the global context, and takes back what the engine has remembered of an
// earlier run though CEF 123 would not have. On TID_UI, once the context is there and before the
// first browser.
void RestorePreferences(const AlloyOptions& options);

}  // namespace cefbinding
