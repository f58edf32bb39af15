// Conditions on the arguments of a notification.
#pragma once

#include <string_view>

#include "portable/json.h"

namespace kzhost {

// Returns whether `text` equals `pattern`, in which each "*" stands for any run of characters.
bool MatchesText(std::string_view text, std::string_view pattern);

// Returns whether every condition, a member of the object `conditions`, holds for the argument of
// its name: a text by MatchesText, anything else by equality. A condition on an argument that is
// missing does not hold; without any condition the result is true.
bool MatchesArguments(const Json& arguments, const Json& conditions);

}  // namespace kzhost
