#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace cefedition {

// Containers inside each other beyond this are refused, so that nobody who walks the result runs
// out of stack.
inline constexpr int kMaxJsonDepth = 200;

// Reads JSON as RFC 8259 has it, and with |allow_trailing_commas| one comma before each closing
// bracket. Of repeated keys the last counts. Nothing for anything else; |*error| then says
// where and why: "Line: 1, column: 5, Syntax error."
std::optional<nlohmann::json> ParseJson(std::string_view text,
                                        bool allow_trailing_commas,
                                        std::string* error = nullptr);

// The text in quotes, with everything escaped that JSON, or a script element around it, could
// misread. Invalid UTF-8 becomes U+FFFD.
std::string QuoteJson(std::string_view text);

}  // namespace cefedition
