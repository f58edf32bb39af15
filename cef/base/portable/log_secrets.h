#pragma once

#include <string>
#include <string_view>

namespace cefedition {

// A protocol message as it may stand in a log: without credentials that answer a demand, without
// the values of the headers that carry them, and without those in URLs. |message| may be cut off
// anywhere. What is no secret stays as it is.
std::string WithoutSecrets(std::string_view message);

}  // namespace cefedition
