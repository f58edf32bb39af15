// Pixels from another process; the gap is told in the header.
#include "painting.h"

#include <wchar.h>

namespace kz::wine {
namespace {

constexpr wchar_t kTranslucent[] = L"Chrome.WindowTranslucent";

// A menu with a shadow, for instance. Wine's own way works for it: it is layered and a window of
// its own on the screen.
bool IsTranslucent(HWND window) {
  return GetPropW(window, kTranslucent) != nullptr;
}

}  // namespace

HANDLE WINAPI SuppliedGetPropW(HWND window, LPCWSTR name) {
  if (!IS_INTRESOURCE(name) && wcscmp(name, kTranslucent) == 0) {
    return reinterpret_cast<HANDLE>(1);
  }
  return GetPropW(window, name);
}

// Chromium makes a window a layered one before it first calls UpdateLayeredWindow. Nothing that is
// drawn into such a window by other means is shown.
LONG WINAPI SuppliedSetWindowLongW(HWND window, int index, LONG value) {
  if (index == GWL_EXSTYLE && !IsTranslucent(window)) {
    value &= ~WS_EX_LAYERED;
  }
  return SetWindowLongW(window, index, value);
}

BOOL WINAPI SuppliedUpdateLayeredWindow(HWND window,
                                        HDC screen,
                                        POINT* position,
                                        SIZE* size,
                                        HDC source,
                                        POINT* source_position,
                                        COLORREF key,
                                        BLENDFUNCTION* blend,
                                        DWORD flags) {
  if (IsTranslucent(window)) {
    return UpdateLayeredWindow(window, screen, position, size, source, source_position, key, blend,
                               flags);
  }
  const HDC target = GetDC(window);
  if (!target) {
    return FALSE;
  }
  const BOOL drawn = BitBlt(target, 0, 0, size->cx, size->cy, source, source_position->x,
                            source_position->y, SRCCOPY);
  ReleaseDC(window, target);
  GdiFlush();  // Onto the screen now, not when this thread next waits for messages.
  return drawn;
}

}  // namespace kz::wine
