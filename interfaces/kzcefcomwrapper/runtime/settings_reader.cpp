// Calls getters of a settings object that may be anybody's, and frees the texts that they return.

#include "runtime/settings_reader.h"

#include <utility>

namespace kzcef {

std::optional<std::wstring> SettingsReader::Text(TextGetter getter) const {
  const auto text = Read(getter);
  return text && *text ? std::optional(std::wstring(text->get(), SysStringLen(text->get())))
                       : std::nullopt;
}

std::optional<std::wstring> SettingsReader::TextOrEmpty(TextGetter getter) const {
  const auto text = Read(getter);
  return text ? std::optional(std::wstring(*text ? text->get() : L"", SysStringLen(text->get())))
              : std::nullopt;
}

std::optional<SettingsReader::OwnedBstr> SettingsReader::Read(TextGetter getter) const {
  BSTR text = nullptr;
  const bool succeeded = SUCCEEDED((settings_.*getter)(&text));
  OwnedBstr owned(text);
  return succeeded ? std::optional(std::move(owned)) : std::nullopt;
}

bool SettingsReader::Flag(FlagGetter getter) const {
  VARIANT_BOOL value = VARIANT_FALSE;
  return SUCCEEDED((settings_.*getter)(&value)) && value == VARIANT_TRUE;
}

long SettingsReader::Number(NumberGetter getter, long otherwise) const {
  long value = otherwise;
  return SUCCEEDED((settings_.*getter)(&value)) ? value : otherwise;
}

}  // namespace kzcef
