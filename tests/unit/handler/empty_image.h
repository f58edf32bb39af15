// An image without a picture, to be passed on.
#pragma once

#include "include/cef_image.h"

namespace kzcef::testing {

class EmptyImage final : public CefImage {
 public:
  bool IsEmpty() override { return true; }
  bool IsSame(CefRefPtr<CefImage> that) override { return that.get() == this; }
  bool AddBitmap(float, int, int, cef_color_type_t, cef_alpha_type_t, const void*, size_t)
      override {
    return false;
  }
  bool AddPNG(float, const void*, size_t) override { return false; }
  bool AddJPEG(float, const void*, size_t) override { return false; }
  size_t GetWidth() override { return 0; }
  size_t GetHeight() override { return 0; }
  bool HasRepresentation(float) override { return false; }
  bool RemoveRepresentation(float) override { return false; }
  bool GetRepresentationInfo(float, float&, int&, int&) override { return false; }
  CefRefPtr<CefBinaryValue> GetAsBitmap(float,
                                        cef_color_type_t,
                                        cef_alpha_type_t,
                                        int&,
                                        int&) override {
    return nullptr;
  }
  CefRefPtr<CefBinaryValue> GetAsPNG(float, bool, int&, int&) override { return nullptr; }
  CefRefPtr<CefBinaryValue> GetAsJPEG(float, int, int&, int&) override { return nullptr; }

 private:
  IMPLEMENT_REFCOUNTING(EmptyImage);
};

}  // namespace kzcef::testing
