// include/cef_image.h of CEF 123, as far as it is used here: an image, such as a favicon.
#pragma once

#include "include/cef_base.h"
#include "include/cef_values.h"

// An image in one or more scales. UI thread.
class CefImage : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefImage> CreateImage();
  virtual bool IsEmpty() = 0;
  virtual bool IsSame(CefRefPtr<CefImage> that) = 0;
  virtual bool AddBitmap(float scale_factor,
                         int pixel_width,
                         int pixel_height,
                         cef_color_type_t color_type,
                         cef_alpha_type_t alpha_type,
                         const void* pixel_data,
                         size_t pixel_data_size) = 0;
  virtual bool AddPNG(float scale_factor, const void* png_data, size_t png_data_size) = 0;
  virtual bool AddJPEG(float scale_factor, const void* jpeg_data, size_t jpeg_data_size) = 0;
  virtual size_t GetWidth() = 0;
  virtual size_t GetHeight() = 0;
  virtual bool HasRepresentation(float scale_factor) = 0;
  virtual bool RemoveRepresentation(float scale_factor) = 0;
  virtual bool GetRepresentationInfo(float scale_factor,
                                     float& actual_scale_factor,
                                     int& pixel_width,
                                     int& pixel_height) = 0;
  virtual CefRefPtr<CefBinaryValue> GetAsBitmap(float scale_factor,
                                                cef_color_type_t color_type,
                                                cef_alpha_type_t alpha_type,
                                                int& pixel_width,
                                                int& pixel_height) = 0;
  virtual CefRefPtr<CefBinaryValue> GetAsPNG(float scale_factor,
                                             bool with_transparency,
                                             int& pixel_width,
                                             int& pixel_height) = 0;
  virtual CefRefPtr<CefBinaryValue> GetAsJPEG(float scale_factor,
                                              int quality,
                                              int& pixel_width,
                                              int& pixel_height) = 0;
};
