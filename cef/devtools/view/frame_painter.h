#pragma once

#include <windows.h>

#include "devtools/view/decoded_image.h"

namespace cefedition {

/// Keeps the last frame of a page and puts it on a window: unscaled, from the top left corner, with
/// white where it does not reach. No pixel is painted twice, so that nothing flickers. Used on the
/// window's thread only.
class FramePainter {
 public:
  /// False, and no change, for a picture whose size and bytes disagree.
  bool SetFrame(DecodedImage frame);

  /// Answers WM_PAINT.
  void PaintWindow(HWND window) const;

  /// Paints the whole client area of `window` into `dc`, which stays the caller's.
  void PaintClient(HWND window, HDC dc) const;

 private:
  void Paint(HDC dc, const RECT& client) const;

  DecodedImage frame_;
};

}  // namespace cefedition
