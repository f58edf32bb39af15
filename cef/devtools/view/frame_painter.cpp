#include "devtools/view/frame_painter.h"

#include <cstddef>
#include <utility>

namespace cefedition {
namespace {

class PaintScope {
 public:
  explicit PaintScope(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~PaintScope() { EndPaint(window_, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;

  HDC dc() const { return dc_; }

 private:
  PAINTSTRUCT paint_{};
  const HWND window_;
  const HDC dc_;
};

void FillWhite(HDC dc, const RECT& rect) {
  if (rect.left < rect.right && rect.top < rect.bottom)
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

}  // namespace

bool FramePainter::SetFrame(DecodedImage frame) {
  if (frame.width < 0 || frame.height < 0 ||
      frame.bgra.size() != static_cast<size_t>(frame.width) * static_cast<size_t>(frame.height) * 4)
    return false;
  frame_ = std::move(frame);
  return true;
}

void FramePainter::PaintWindow(HWND window) const {
  const PaintScope paint(window);
  PaintClient(window, paint.dc());
}

void FramePainter::PaintClient(HWND window, HDC dc) const {
  RECT client{};
  if (dc && GetClientRect(window, &client))
    Paint(dc, client);
}

void FramePainter::Paint(HDC dc, const RECT& client) const {
  FillWhite(dc, {frame_.width, 0, client.right, client.bottom});
  FillWhite(dc, {0, frame_.height, frame_.width, client.bottom});
  if (frame_.bgra.empty())
    return;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = frame_.width;
  // Negative: the first row is the top one.
  info.bmiHeader.biHeight = -frame_.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(frame_.width), static_cast<DWORD>(frame_.height),
                    0, 0, 0, static_cast<UINT>(frame_.height), frame_.bgra.data(), &info,
                    DIB_RGB_COLORS);
}

}  // namespace cefedition
