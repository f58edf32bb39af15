// Formats the chooser's texts without the C runtime's
// formatting: the prompt comes from a translation.

#include "dialogs/chooser_texts.h"

namespace kzcef {

std::string SerialNumberText(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += kDigits[value >> 4];
    text += kDigits[value & 0xF];
  }
  return text;
}

std::wstring PromptText(std::wstring_view format, const wchar_t* site) {
  constexpr std::wstring_view kPlace = L"%s";
  std::wstring text(format);
  if (const size_t place = text.find(kPlace); place != std::wstring::npos) {
    text.replace(place, kPlace.size(), site ? site : L"(null)");
  }
  return text;
}

}  // namespace kzcef
