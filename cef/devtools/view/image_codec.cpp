#include "devtools/view/image_codec.h"

#include <windows.h>

#include <objbase.h>
#include <ocidl.h>
#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <limits>
#include <new>

namespace cefedition {
namespace {

using Microsoft::WRL::ComPtr;

constexpr size_t kBytesPerPixel = 4;

/// COM for the length of a call on a thread that may not have it.
class ComScope {
 public:
  ComScope() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
  ~ComScope() {
    if (entered_)
      CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  const bool entered_;
};

ComPtr<IWICImagingFactory> CreateFactory() {
  ComPtr<IWICImagingFactory> factory;
  CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory));
  return factory;
}

ComPtr<IWICBitmapDecoder> CreateDecoder(IWICImagingFactory* factory,
                                        std::span<const uint8_t> data) {
  ComPtr<IWICBitmapDecoder> decoder;
  ComPtr<IWICStream> stream;
  if (data.empty() || data.size() > std::numeric_limits<DWORD>::max() ||
      FAILED(factory->CreateStream(&stream)))
    return decoder;
  // The stream only reads, though its signature does not say so.
  auto* bytes = const_cast<BYTE*>(data.data());
  if (FAILED(stream->InitializeFromMemory(bytes, static_cast<DWORD>(data.size()))))
    return decoder;
  if (FAILED(factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                              &decoder)))
    decoder.Reset();
  return decoder;
}

bool IsWanted(IWICBitmapDecoder* decoder, ImageKind kind) {
  if (kind == ImageKind::kAny)
    return true;
  GUID format{};
  if (FAILED(decoder->GetContainerFormat(&format)))
    return false;
  return (kind != ImageKind::kJpeg && IsEqualGUID(format, GUID_ContainerFormatPng)) ||
         (kind != ImageKind::kPng && IsEqualGUID(format, GUID_ContainerFormatJpeg));
}

std::optional<DecodedImage> ReadFirstFrame(IWICImagingFactory* factory,
                                           IWICBitmapDecoder* decoder) {
  ComPtr<IWICBitmapFrameDecode> frame;
  UINT width = 0;
  UINT height = 0;
  if (FAILED(decoder->GetFrame(0, &frame)) || FAILED(frame->GetSize(&width, &height)))
    return std::nullopt;
  if (width == 0 || height == 0 || width > kMaxImageSide || height > kMaxImageSide)
    return std::nullopt;
  const size_t stride = width * kBytesPerPixel;
  if (stride * height > std::numeric_limits<INT>::max())
    return std::nullopt;

  ComPtr<IWICFormatConverter> converter;
  if (FAILED(factory->CreateFormatConverter(&converter)) ||
      FAILED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA,
                                   WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom)))
    return std::nullopt;
  DecodedImage image{static_cast<int>(width), static_cast<int>(height), {}};
  image.bgra.resize(stride * height);
  if (FAILED(converter->CopyPixels(nullptr, static_cast<UINT>(stride),
                                   static_cast<UINT>(image.bgra.size()), image.bgra.data())))
    return std::nullopt;
  return image;
}

bool IsConsistent(const DecodedImage& image) {
  return image.width > 0 && image.height > 0 && image.width <= kMaxImageSide &&
         image.height <= kMaxImageSide &&
         image.bgra.size() ==
             static_cast<size_t>(image.width) * static_cast<size_t>(image.height) * kBytesPerPixel;
}

std::vector<uint8_t> ReadAll(IStream* stream) {
  STATSTG info{};
  if (FAILED(stream->Stat(&info, STATFLAG_NONAME)) || info.cbSize.HighPart != 0)
    return {};
  std::vector<uint8_t> bytes(info.cbSize.LowPart);
  ULONG read = 0;
  if (FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr)) ||
      FAILED(stream->Read(bytes.data(), info.cbSize.LowPart, &read)) || read != bytes.size())
    return {};
  return bytes;
}

/// Every picture goes out without alpha as 24 bits a pixel: that is what JPEG knows, and what an
/// opaque PNG is.
std::vector<uint8_t> DropAlpha(const DecodedImage& image) {
  std::vector<uint8_t> bgr;
  bgr.reserve(image.bgra.size() / kBytesPerPixel * 3);
  for (size_t at = 0; at < image.bgra.size(); at += kBytesPerPixel) {
    const auto pixel = image.bgra.begin() + static_cast<ptrdiff_t>(at);
    bgr.insert(bgr.end(), pixel, pixel + 3);
  }
  return bgr;
}

bool SetQuality(IPropertyBag2* options, int quality) {
  wchar_t name[] = L"ImageQuality";
  PROPBAG2 option{};
  option.pstrName = name;
  VARIANT value{};
  value.vt = VT_R4;
  value.fltVal = static_cast<float>(std::clamp(quality, 0, 100)) / 100.0F;
  return SUCCEEDED(options->Write(1, &option, &value));
}

std::vector<uint8_t> Encode(const DecodedImage& image,
                            const GUID& container,
                            bool with_alpha,
                            const int* quality) {
  if (!IsConsistent(image))
    return {};
  const ComScope com;
  const ComPtr<IWICImagingFactory> factory = CreateFactory();
  ComPtr<IStream> stream;
  ComPtr<IWICBitmapEncoder> encoder;
  ComPtr<IWICBitmapFrameEncode> frame;
  ComPtr<IPropertyBag2> options;
  if (!factory || FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
      FAILED(factory->CreateEncoder(container, nullptr, &encoder)) ||
      FAILED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) ||
      FAILED(encoder->CreateNewFrame(&frame, &options)))
    return {};
  if (quality && options && !SetQuality(options.Get(), *quality))
    return {};
  if (FAILED(frame->Initialize(options.Get())) ||
      FAILED(frame->SetSize(static_cast<UINT>(image.width), static_cast<UINT>(image.height))))
    return {};

  const GUID wanted = with_alpha ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
  GUID accepted = wanted;
  if (FAILED(frame->SetPixelFormat(&accepted)) || !IsEqualGUID(accepted, wanted))
    return {};
  std::vector<uint8_t> pixels = with_alpha ? image.bgra : DropAlpha(image);
  const size_t stride = static_cast<size_t>(image.width) * (with_alpha ? kBytesPerPixel : 3);
  if (pixels.size() > std::numeric_limits<INT>::max() ||
      FAILED(frame->WritePixels(static_cast<UINT>(image.height), static_cast<UINT>(stride),
                                static_cast<UINT>(pixels.size()), pixels.data())) ||
      FAILED(frame->Commit()) || FAILED(encoder->Commit()))
    return {};
  return ReadAll(stream.Get());
}

}  // namespace

std::optional<DecodedImage> DecodeImage(std::span<const uint8_t> data, ImageKind kind) try {
  const ComScope com;
  const ComPtr<IWICImagingFactory> factory = CreateFactory();
  if (!factory)
    return std::nullopt;
  const ComPtr<IWICBitmapDecoder> decoder = CreateDecoder(factory.Get(), data);
  if (!decoder || !IsWanted(decoder.Get(), kind))
    return std::nullopt;
  return ReadFirstFrame(factory.Get(), decoder.Get());
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

std::optional<DecodedImage> DecodePngOrJpeg(std::span<const uint8_t> data) {
  return DecodeImage(data, ImageKind::kPngOrJpeg);
}

std::vector<uint8_t> EncodePng(const DecodedImage& image, bool with_alpha) try {
  return Encode(image, GUID_ContainerFormatPng, with_alpha, nullptr);
} catch (const std::bad_alloc&) {
  return {};
}

std::vector<uint8_t> EncodeJpeg(const DecodedImage& image, int quality) try {
  return Encode(image, GUID_ContainerFormatJpeg, false, &quality);
} catch (const std::bad_alloc&) {
  return {};
}

}  // namespace cefedition
