#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "devtools/view/decoded_image.h"

namespace cefedition {

/// The widest and the highest picture that is decoded or encoded, in pixels.
inline constexpr int kMaxImageSide = 16384;

// The functions below use the Windows Imaging Component. They may be called on any thread, and are
// quicker on one that has initialised COM (in either way). They report every failure by an empty
// result.

/// Which kinds of picture a caller takes.
enum class ImageKind {
  kPng,
  kJpeg,
  kPngOrJpeg,
  /// Whatever the system's codecs recognise: also ICO, BMP and GIF, of which the first frame.
  kAny,
};

/// Decodes a picture. Empty for data that is damaged, cut short or of a kind not wanted, and for a
/// side longer than `kMaxImageSide`.
std::optional<DecodedImage> DecodeImage(std::span<const uint8_t> data,
                                        ImageKind kind = ImageKind::kAny);

/// `DecodeImage` for the frames of a page.
std::optional<DecodedImage> DecodePngOrJpeg(std::span<const uint8_t> data);

/// Encodes as PNG; `with_alpha` false writes an opaque picture without an alpha channel. Empty for
/// an empty picture or one whose size and bytes disagree.
std::vector<uint8_t> EncodePng(const DecodedImage& image, bool with_alpha = true);

/// Encodes as JPEG, dropping the alpha channel; `quality` runs from 0 (smallest) to 100 (best) and
/// is clamped to that range. Empty as for `EncodePng`.
std::vector<uint8_t> EncodeJpeg(const DecodedImage& image, int quality);

}  // namespace cefedition
