// include/cef_image.h over the C API.

#include "include/cef_image.h"

#include "binding.h"

namespace cefbinding {
namespace {

class ImageObject final : public LibraryObject<CefImage> {
 public:
  explicit ImageObject(Struct* object) : LibraryObject(object) {}

  bool IsEmpty() override { return Call(&Struct::is_empty); }
  bool IsSame(CefRefPtr<CefImage> that) override { return Call(&Struct::is_same, that); }
  bool AddBitmap(float scale_factor,
                 int pixel_width,
                 int pixel_height,
                 cef_color_type_t color_type,
                 cef_alpha_type_t alpha_type,
                 const void* pixel_data,
                 size_t pixel_data_size) override {
    return Call(&Struct::add_bitmap, scale_factor, pixel_width, pixel_height, color_type,
                alpha_type, pixel_data, pixel_data_size);
  }
  bool AddPNG(float scale_factor, const void* png_data, size_t png_data_size) override {
    return Call(&Struct::add_png, scale_factor, png_data, png_data_size);
  }
  bool AddJPEG(float scale_factor, const void* jpeg_data, size_t jpeg_data_size) override {
    return Call(&Struct::add_jpeg, scale_factor, jpeg_data, jpeg_data_size);
  }
  size_t GetWidth() override { return Call(&Struct::get_width); }
  size_t GetHeight() override { return Call(&Struct::get_height); }
  bool HasRepresentation(float scale_factor) override {
    return Call(&Struct::has_representation, scale_factor);
  }
  bool RemoveRepresentation(float scale_factor) override {
    return Call(&Struct::remove_representation, scale_factor);
  }
  bool GetRepresentationInfo(float scale_factor,
                             float& actual_scale_factor,
                             int& pixel_width,
                             int& pixel_height) override {
    return Call(&Struct::get_representation_info, scale_factor, &actual_scale_factor, &pixel_width,
                &pixel_height);
  }
  CefRefPtr<CefBinaryValue> GetAsBitmap(float scale_factor,
                                        cef_color_type_t color_type,
                                        cef_alpha_type_t alpha_type,
                                        int& pixel_width,
                                        int& pixel_height) override {
    return Call(&Struct::get_as_bitmap, scale_factor, color_type, alpha_type, &pixel_width,
                &pixel_height);
  }
  CefRefPtr<CefBinaryValue> GetAsPNG(float scale_factor,
                                     bool with_transparency,
                                     int& pixel_width,
                                     int& pixel_height) override {
    return Call(&Struct::get_as_png, scale_factor, with_transparency, &pixel_width, &pixel_height);
  }
  CefRefPtr<CefBinaryValue> GetAsJPEG(float scale_factor,
                                      int quality,
                                      int& pixel_width,
                                      int& pixel_height) override {
    return Call(&Struct::get_as_jpeg, scale_factor, quality, &pixel_width, &pixel_height);
  }
};

}  // namespace

template <>
CefRefPtr<CefImage> Counterpart<CefImage>::LibraryClass::Wrap(Struct* object) {
  return new ImageObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefImage> CefImage::CreateImage() {
  return CallEngine(&capi::Functions::cef_image_create);
}
