#include "runtime/settings_reader.h"

#include <memory>

namespace kzcef {

std::optional<std::wstring> SettingsReader::Text(TextGetter getter) const {
  BSTR text = nullptr;
  if (FAILED((settings_.*getter)(&text)) || !text) {
    return std::nullopt;
  }
  const std::unique_ptr<OLECHAR, decltype(&SysFreeString)> owned(text, &SysFreeString);
  return std::wstring(text, SysStringLen(text));
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
