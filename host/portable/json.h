// The JSON type of the host's files: members keep the order in which they were written.
#pragma once

#include <nlohmann/json.hpp>

namespace kzhost {

using Json = nlohmann::ordered_json;

}  // namespace kzhost
