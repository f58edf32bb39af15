// Conditions on the arguments of a notification.
#pragma once

#include <string_view>

#include "portable/json.h"

namespace kzhost {

// Whether `text` equals `pattern`, in which each "*" stands for any run of characters.
bool MatchesText(std::string_view text, std::string_view pattern);

// Whether every member of the object `conditions` holds for `arguments`: a text by MatchesText,
// anything else by equality. A member that `arguments` lacks does not hold; no conditions hold.
bool MatchesArguments(const Json& arguments, const Json& conditions);

}  // namespace kzhost
