#include <algorithm>
#include <cmath>
#include <mutex>
#include <new>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "devtools/view/image_codec.h"
#include "devtools/view/pixel_format.h"
#include "include/cef_image.h"

namespace {

using cefedition::AlphaForm;
using cefedition::ColorOrder;
using cefedition::DecodedImage;
using cefedition::ImageKind;

constexpr float kSameScale = 0.001F;

std::optional<ColorOrder> OrderOf(cef_color_type_t type) {
  switch (type) {
    case CEF_COLOR_TYPE_RGBA_8888:
      return ColorOrder::kRgba;
    case CEF_COLOR_TYPE_BGRA_8888:
      return ColorOrder::kBgra;
  }
  return std::nullopt;
}

std::optional<AlphaForm> FormOf(cef_alpha_type_t type) {
  switch (type) {
    case CEF_ALPHA_TYPE_OPAQUE:
      return AlphaForm::kOpaque;
    case CEF_ALPHA_TYPE_PREMULTIPLIED:
      return AlphaForm::kPremultiplied;
    case CEF_ALPHA_TYPE_POSTMULTIPLIED:
      return AlphaForm::kStraight;
  }
  return std::nullopt;
}

CefRefPtr<CefBinaryValue> ToBinary(const std::vector<uint8_t>& bytes) {
  return bytes.empty() ? nullptr : CefBinaryValue::Create(bytes.data(), bytes.size());
}

/// The edition's CefImage: one picture a scale factor, in the order in which they were added. Any
/// thread may call.
class EditionImage final : public CefImage {
 public:
  bool IsEmpty() override;
  bool IsSame(CefRefPtr<CefImage> that) override;
  bool AddBitmap(float scale_factor,
                 int pixel_width,
                 int pixel_height,
                 cef_color_type_t color_type,
                 cef_alpha_type_t alpha_type,
                 const void* pixel_data,
                 size_t pixel_data_size) override;
  bool AddPNG(float scale_factor, const void* png_data, size_t png_data_size) override;
  bool AddJPEG(float scale_factor, const void* jpeg_data, size_t jpeg_data_size) override;
  size_t GetWidth() override;
  size_t GetHeight() override;
  bool HasRepresentation(float scale_factor) override;
  bool RemoveRepresentation(float scale_factor) override;
  bool GetRepresentationInfo(float scale_factor,
                             float& actual_scale_factor,
                             int& pixel_width,
                             int& pixel_height) override;
  CefRefPtr<CefBinaryValue> GetAsBitmap(float scale_factor,
                                        cef_color_type_t color_type,
                                        cef_alpha_type_t alpha_type,
                                        int& pixel_width,
                                        int& pixel_height) override;
  CefRefPtr<CefBinaryValue> GetAsPNG(float scale_factor,
                                     bool with_transparency,
                                     int& pixel_width,
                                     int& pixel_height) override;
  CefRefPtr<CefBinaryValue> GetAsJPEG(float scale_factor,
                                      int quality,
                                      int& pixel_width,
                                      int& pixel_height) override;

 private:
  struct Representation {
    float scale = 1.0F;
    DecodedImage image;
  };

  bool Add(float scale_factor, std::optional<DecodedImage> image);
  bool AddEncoded(float scale_factor, const void* data, size_t size, ImageKind kind);
  // These two expect the lock to be held.
  std::vector<Representation>::iterator FindExact(float scale_factor);
  const Representation* FindClosest(float scale_factor) const;
  std::optional<Representation> CopyClosest(float scale_factor);

  std::mutex lock_;
  std::vector<Representation> representations_;

  IMPLEMENT_REFCOUNTING(EditionImage);
};

bool EditionImage::IsEmpty() {
  const std::lock_guard guard(lock_);
  return representations_.empty();
}

bool EditionImage::IsSame(CefRefPtr<CefImage> that) {
  return that && (that.get() == this || (IsEmpty() && that->IsEmpty()));
}

bool EditionImage::AddBitmap(float scale_factor,
                             int pixel_width,
                             int pixel_height,
                             cef_color_type_t color_type,
                             cef_alpha_type_t alpha_type,
                             const void* pixel_data,
                             size_t pixel_data_size) try {
  const auto order = OrderOf(color_type);
  const auto form = FormOf(alpha_type);
  if (!order || !form || !pixel_data || pixel_width <= 0 || pixel_height <= 0 ||
      pixel_width > cefedition::kMaxImageSide || pixel_height > cefedition::kMaxImageSide)
    return false;
  const size_t needed = static_cast<size_t>(pixel_width) * static_cast<size_t>(pixel_height) * 4;
  if (pixel_data_size < needed)
    return false;
  const std::span pixels(static_cast<const uint8_t*>(pixel_data), needed);
  return Add(scale_factor, DecodedImage{pixel_width, pixel_height,
                                        cefedition::ToStraightBgra(pixels, *order, *form)});
} catch (const std::bad_alloc&) {
  return false;
}

bool EditionImage::AddPNG(float scale_factor, const void* png_data, size_t png_data_size) {
  return AddEncoded(scale_factor, png_data, png_data_size, ImageKind::kPng);
}

bool EditionImage::AddJPEG(float scale_factor, const void* jpeg_data, size_t jpeg_data_size) {
  return AddEncoded(scale_factor, jpeg_data, jpeg_data_size, ImageKind::kJpeg);
}

bool EditionImage::AddEncoded(float scale_factor, const void* data, size_t size, ImageKind kind) {
  if (!data)
    return false;
  return Add(scale_factor,
             cefedition::DecodeImage({static_cast<const uint8_t*>(data), size}, kind));
}

bool EditionImage::Add(float scale_factor, std::optional<DecodedImage> image) {
  if (!image || !std::isfinite(scale_factor) || scale_factor <= 0)
    return false;
  const std::lock_guard guard(lock_);
  const auto present = FindExact(scale_factor);
  if (present != representations_.end())
    present->image = std::move(*image);
  else
    representations_.push_back({scale_factor, std::move(*image)});
  return true;
}

size_t EditionImage::GetWidth() {
  const std::lock_guard guard(lock_);
  if (representations_.empty())
    return 0;
  const Representation& first = representations_.front();
  return static_cast<size_t>(static_cast<float>(first.image.width) / first.scale);
}

size_t EditionImage::GetHeight() {
  const std::lock_guard guard(lock_);
  if (representations_.empty())
    return 0;
  const Representation& first = representations_.front();
  return static_cast<size_t>(static_cast<float>(first.image.height) / first.scale);
}

bool EditionImage::HasRepresentation(float scale_factor) {
  const std::lock_guard guard(lock_);
  return FindExact(scale_factor) != representations_.end();
}

bool EditionImage::RemoveRepresentation(float scale_factor) {
  const std::lock_guard guard(lock_);
  const auto present = FindExact(scale_factor);
  if (present == representations_.end())
    return false;
  representations_.erase(present);
  return true;
}

bool EditionImage::GetRepresentationInfo(float scale_factor,
                                         float& actual_scale_factor,
                                         int& pixel_width,
                                         int& pixel_height) {
  const std::lock_guard guard(lock_);
  const Representation* closest = FindClosest(scale_factor);
  if (!closest)
    return false;
  actual_scale_factor = closest->scale;
  pixel_width = closest->image.width;
  pixel_height = closest->image.height;
  return true;
}

CefRefPtr<CefBinaryValue> EditionImage::GetAsBitmap(float scale_factor,
                                                    cef_color_type_t color_type,
                                                    cef_alpha_type_t alpha_type,
                                                    int& pixel_width,
                                                    int& pixel_height) try {
  const auto order = OrderOf(color_type);
  const auto form = FormOf(alpha_type);
  const auto closest = CopyClosest(scale_factor);
  if (!order || !form || !closest)
    return nullptr;
  pixel_width = closest->image.width;
  pixel_height = closest->image.height;
  return ToBinary(cefedition::FromStraightBgra(closest->image.bgra, *order, *form));
} catch (const std::bad_alloc&) {
  return nullptr;
}

CefRefPtr<CefBinaryValue> EditionImage::GetAsPNG(float scale_factor,
                                                 bool with_transparency,
                                                 int& pixel_width,
                                                 int& pixel_height) try {
  const auto closest = CopyClosest(scale_factor);
  if (!closest)
    return nullptr;
  pixel_width = closest->image.width;
  pixel_height = closest->image.height;
  return ToBinary(cefedition::EncodePng(closest->image, with_transparency));
} catch (const std::bad_alloc&) {
  return nullptr;
}

CefRefPtr<CefBinaryValue> EditionImage::GetAsJPEG(float scale_factor,
                                                  int quality,
                                                  int& pixel_width,
                                                  int& pixel_height) try {
  const auto closest = CopyClosest(scale_factor);
  if (!closest)
    return nullptr;
  pixel_width = closest->image.width;
  pixel_height = closest->image.height;
  return ToBinary(cefedition::EncodeJpeg(closest->image, quality));
} catch (const std::bad_alloc&) {
  return nullptr;
}

std::vector<EditionImage::Representation>::iterator EditionImage::FindExact(float scale_factor) {
  return std::ranges::find_if(representations_, [&](const Representation& candidate) {
    return std::fabs(candidate.scale - scale_factor) < kSameScale;
  });
}

const EditionImage::Representation* EditionImage::FindClosest(float scale_factor) const {
  const auto closest = std::ranges::min_element(
      representations_, {},
      [&](const Representation& candidate) { return std::fabs(candidate.scale - scale_factor); });
  return closest != representations_.end() ? &*closest : nullptr;
}

std::optional<EditionImage::Representation> EditionImage::CopyClosest(float scale_factor) {
  const std::lock_guard guard(lock_);
  const Representation* closest = FindClosest(scale_factor);
  if (!closest)
    return std::nullopt;
  return *closest;
}

}  // namespace

CefRefPtr<CefImage> CefImage::CreateImage() {
  return new EditionImage;
}
