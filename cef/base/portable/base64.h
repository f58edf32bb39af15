#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cefedition {

// Base64 with padding, without line breaks.
std::string Base64Encode(std::span<const uint8_t> data);

// Nothing for a text that is not base64: its length must be a multiple of four, with padding, and
// no other characters may be in it.
std::optional<std::vector<uint8_t>> Base64Decode(std::string_view text);

}  // namespace cefedition
