#include "runtime/settings_reader.h"

#include <utility>

namespace kzcef {

std::optional<std::wstring> SettingsReader::Text(TextGetter getter) const {
  const OwnedBstr text = Read(getter).text;
  return text ? std::optional(std::wstring(text.get(), SysStringLen(text.get()))) : std::nullopt;
}

std::optional<std::wstring> SettingsReader::TextOrEmpty(TextGetter getter) const {
  const Answer answer = Read(getter);
  return answer.succeeded ? std::optional(std::wstring(answer.text ? answer.text.get() : L"",
                                                       SysStringLen(answer.text.get())))
                          : std::nullopt;
}

SettingsReader::Answer SettingsReader::Read(TextGetter getter) const {
  BSTR text = nullptr;
  const bool succeeded = SUCCEEDED((settings_.*getter)(&text));
  OwnedBstr owned(text);
  return {succeeded, succeeded ? std::move(owned) : nullptr};
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
