// Reading a host's settings object, whoever implements it.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <optional>
#include <string>

#include "KZCEFComWrapper.h"

namespace kzcef {

// One getter call each, in the order in which they are asked. A getter that fails counts as having
// yielded nothing, whatever it wrote.
class SettingsReader {
 public:
  using TextGetter = HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*)(BSTR*);
  using FlagGetter = HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*)(VARIANT_BOOL*);
  using NumberGetter = HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*)(long*);

  // Does not keep a reference: `settings` outlives the reader.
  explicit SettingsReader(IKZCEFComSettings& settings) : settings_(settings) {}

  // Nothing for a null text, which is not the same as an empty one.
  std::optional<std::wstring> Text(TextGetter getter) const;
  // Empty for a null text, nothing when the getter fails.
  std::optional<std::wstring> TextOrEmpty(TextGetter getter) const;
  // True for VARIANT_TRUE and for nothing else.
  bool Flag(FlagGetter getter) const;
  // `otherwise` when the getter left the value alone.
  long Number(NumberGetter getter, long otherwise) const;

 private:
  struct BstrFree {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
  };
  using OwnedBstr = std::unique_ptr<OLECHAR, BstrFree>;

  // Nothing when the getter fails.
  std::optional<OwnedBstr> Read(TextGetter getter) const;

  IKZCEFComSettings& settings_;
};

}  // namespace kzcef
