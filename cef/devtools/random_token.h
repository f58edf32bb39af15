#pragma once

#include <string>

namespace cefedition {

/// 32 hexadecimal digits that nobody can guess.
std::string MakeToken();

}  // namespace cefedition
