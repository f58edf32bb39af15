#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/portable/base64.h"
#include "include/cef_parser.h"

namespace cefedition {

/// The bytes of a base64 text; empty for a malformed one.
inline std::vector<uint8_t> DecodeBase64(const std::string& text) {
  const CefRefPtr<CefBinaryValue> value = CefBase64Decode(text);
  std::vector<uint8_t> bytes(value ? value->GetSize() : 0);
  if (!bytes.empty()) {
    value->GetData(bytes.data(), bytes.size(), 0);
  }
  return bytes;
}

/// The base64 text of a text's bytes.
inline std::string EncodeBase64(std::string_view text) {
  return Base64Encode({reinterpret_cast<const uint8_t*>(text.data()), text.size()});
}

}  // namespace cefedition
