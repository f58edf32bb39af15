// Reading a host's settings object, whoever implements it.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <optional>
#include <string>

#include "KZCEFComWrapper.h"

namespace kzcef {

// Each member calls one getter. A getter that fails counts as having supplied nothing, whatever it
// wrote.
class SettingsReader {
 public:
  using TextGetter = HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*)(BSTR*);
  using FlagGetter = HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*)(VARIANT_BOOL*);
  using NumberGetter = HRESULT (STDMETHODCALLTYPE IKZCEFComSettings::*)(long*);

  // Does not keep a reference: `settings` outlives the reader.
  explicit SettingsReader(IKZCEFComSettings& settings) : settings_(settings) {}

  // Returns nothing for a null text, which is not the same as an empty one.
  std::optional<std::wstring> Text(TextGetter getter) const;
  // Returns an empty text for a null one, and nothing when the getter fails.
  std::optional<std::wstring> TextOrEmpty(TextGetter getter) const;
  // Returns true for VARIANT_TRUE and for nothing else.
  bool Flag(FlagGetter getter) const;
  // Returns `otherwise` when the getter fails or leaves the value alone.
  long Number(NumberGetter getter, long otherwise) const;

 private:
  struct BstrFree {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
  };
  using OwnedBstr = std::unique_ptr<OLECHAR, BstrFree>;

  // Returns nothing when the getter fails.
  std::optional<OwnedBstr> Read(TextGetter getter) const;

  IKZCEFComSettings& settings_;
};

}  // namespace kzcef
