#include "file_name.h"

#include <algorithm>
#include <array>

#include "ascii.h"

namespace cefedition {
namespace {

// An extension longer than this is not worth keeping whole.
constexpr size_t kMaxExtensionBytes = 40;

constexpr std::array<std::string_view, 7> kDevices = {"con",    "prn",    "aux",    "nul",
                                                      "clock$", "conin$", "conout$"};

bool IsRefused(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F ||
         std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos;
}

// Devices are found under any extension, and with spaces before it.
bool IsDevice(std::string_view name) {
  std::string stem = ToLowerAscii(name.substr(0, name.find('.')));
  while (stem.ends_with(' ')) {
    stem.pop_back();
  }
  if (std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end()) {
    return true;
  }
  const bool is_port = stem.starts_with("com") || stem.starts_with("lpt");
  if (!is_port) {
    return false;
  }
  const std::string_view number = std::string_view(stem).substr(3);
  // The superscripts one to three count as digits here.
  return (number.size() == 1 && IsDigit(number.front())) || number == "\xC2\xB9" ||
         number == "\xC2\xB2" || number == "\xC2\xB3";
}

// Cuts UTF-8 between two characters; what is no UTF-8 is cut anywhere.
std::string_view CutTo(std::string_view text, size_t size) {
  if (text.size() <= size) {
    return text;
  }
  constexpr size_t kLongestCharacter = 4;
  size_t end = size;
  while (size - end < kLongestCharacter && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
    --end;
  }
  return text.substr(0, end);
}

void TrimEnd(std::string& name) {
  name.erase(name.find_last_not_of(". ") + 1);
}

void KeepFromDevices(std::string& name) {
  if (IsDevice(name)) {
    name.insert(name.begin(), '_');
  }
}

}  // namespace

std::string SafeFileName(std::string_view wished) {
  std::string name(wished);
  std::replace_if(name.begin(), name.end(), IsRefused, '_');
  TrimEnd(name);
  name.erase(0, std::min(name.find_first_not_of(' '), name.size()));
  if (name.empty()) {
    return "download";
  }
  if (name.front() == '.') {
    name.front() = '_';
  }
  KeepFromDevices(name);
  if (name.size() > kMaxFileNameBytes) {
    const size_t dot = name.rfind('.');
    std::string extension = dot != std::string::npos ? name.substr(dot) : std::string();
    if (extension.size() > kMaxExtensionBytes) {
      extension.clear();
    }
    name = CutTo(name, kMaxFileNameBytes - extension.size());
    TrimEnd(name);
    name += extension;
    // What stood behind a device's name and many spaces may be gone now.
    KeepFromDevices(name);
  }
  return name;
}

}  // namespace cefedition
