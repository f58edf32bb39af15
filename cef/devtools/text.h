#pragma once

#include <string>
#include <string_view>

namespace cefedition {

std::wstring Utf8ToWide(std::string_view text);
std::string WideToUtf8(std::wstring_view text);

}  // namespace cefedition
