// A VARIANT that frees what it holds.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace kzhost {

class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  ~Variant() { VariantClear(this); }
  Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
  Variant& operator=(Variant&& other) noexcept {
    if (this != &other) {
      VariantClear(this);
      static_cast<VARIANT&>(*this) = other;
      VariantInit(&other);
    }
    return *this;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  // The pointer for a call that fills the variant; what it held before is freed.
  VARIANT* Receive() {
    VariantClear(this);
    return this;
  }
};

}  // namespace kzhost
