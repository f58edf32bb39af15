// Copies a window's client area from the screen with GDI and writes it with
// the PNG encoder of the Windows Imaging Component.

#include "ui/screenshot.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <type_traits>

namespace kzhost {
namespace {

using Microsoft::WRL::ComPtr;

constexpr size_t kBytesPerPixel = 4;

struct ScreenRelease {
  void operator()(HDC context) const { ReleaseDC(nullptr, context); }
};
struct ContextDelete {
  void operator()(HDC context) const { DeleteDC(context); }
};
struct BitmapDelete {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using ScreenContext = std::unique_ptr<std::remove_pointer_t<HDC>, ScreenRelease>;
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, ContextDelete>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDelete>;

}  // namespace

COLORREF Picture::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width || y >= height) {
    return CLR_INVALID;
  }
  const size_t at = (static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)) *
                    kBytesPerPixel;
  return RGB(bgra[at + 2], bgra[at + 1], bgra[at]);
}

bool Picture::IsUniform() const {
  for (size_t at = kBytesPerPixel; at < bgra.size(); at += kBytesPerPixel) {
    if (std::memcmp(&bgra[at], bgra.data(), kBytesPerPixel - 1) != 0) {
      return false;
    }
  }
  return true;
}

Picture TakePicture(HWND window) {
  RECT client = {};
  POINT origin = {0, 0};
  if (!GetClientRect(window, &client) || !ClientToScreen(window, &origin) || client.right <= 0 ||
      client.bottom <= 0) {
    return {};
  }
  BITMAPINFO layout = {};
  layout.bmiHeader.biSize = sizeof(layout.bmiHeader);
  layout.bmiHeader.biWidth = client.right;
  layout.bmiHeader.biHeight = -client.bottom;  // rows from the top
  layout.bmiHeader.biPlanes = 1;
  layout.bmiHeader.biBitCount = 32;
  layout.bmiHeader.biCompression = BI_RGB;

  const ScreenContext screen(GetDC(nullptr));
  const MemoryContext memory(CreateCompatibleDC(screen.get()));
  void* bits = nullptr;
  const Bitmap bitmap(CreateDIBSection(screen.get(), &layout, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!memory || !bitmap || !bits) {
    return {};
  }
  HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
  const BOOL copied = BitBlt(memory.get(), 0, 0, client.right, client.bottom, screen.get(),
                             origin.x, origin.y, SRCCOPY | CAPTUREBLT);
  GdiFlush();
  SelectObject(memory.get(), before);
  if (!copied) {
    return {};
  }
  Picture picture;
  picture.width = client.right;
  picture.height = client.bottom;
  const auto* first = static_cast<const std::uint8_t*>(bits);
  picture.bgra.assign(first, first + static_cast<size_t>(picture.width) *
                                         static_cast<size_t>(picture.height) * kBytesPerPixel);
  // The screen leaves the fourth byte of each pixel as it likes; the file shall be opaque.
  for (size_t alpha = kBytesPerPixel - 1; alpha < picture.bgra.size(); alpha += kBytesPerPixel) {
    picture.bgra[alpha] = 0xFF;
  }
  return picture;
}

HRESULT SavePng(const Picture& picture, const std::wstring& path) {
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapEncoder> encoder;
  ComPtr<IWICBitmapFrameEncode> frame;
  HRESULT result = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_PPV_ARGS(&factory));
  if (SUCCEEDED(result)) {
    result = factory->CreateStream(&stream);
  }
  if (SUCCEEDED(result)) {
    result = stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE);
  }
  if (SUCCEEDED(result)) {
    result = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder);
  }
  if (SUCCEEDED(result)) {
    result = encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache);
  }
  if (SUCCEEDED(result)) {
    result = encoder->CreateNewFrame(&frame, nullptr);
  }
  if (SUCCEEDED(result)) {
    result = frame->Initialize(nullptr);
  }
  const auto width = static_cast<UINT>(picture.width);
  const auto height = static_cast<UINT>(picture.height);
  if (SUCCEEDED(result)) {
    result = frame->SetSize(width, height);
  }
  WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGRA;
  if (SUCCEEDED(result)) {
    result = frame->SetPixelFormat(&format);
  }
  if (SUCCEEDED(result) && format != GUID_WICPixelFormat32bppBGRA) {
    result = WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT;
  }
  if (SUCCEEDED(result)) {
    // WIC takes a pointer to writable memory and only reads it.
    std::vector<std::uint8_t> pixels = picture.bgra;
    result = frame->WritePixels(height, width * kBytesPerPixel, static_cast<UINT>(pixels.size()),
                                pixels.data());
  }
  if (SUCCEEDED(result)) {
    result = frame->Commit();
  }
  return SUCCEEDED(result) ? encoder->Commit() : result;
}

}  // namespace kzhost
