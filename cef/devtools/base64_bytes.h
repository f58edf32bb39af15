#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

}  // namespace cefedition
